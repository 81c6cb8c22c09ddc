#!/usr/bin/env python3
"""Machine model and load estimation, calculated apart from the program.

Writes a table of random machines and random samples with everything that follows from them. The program's test reads
the table and compares: every number has to agree to 1e-12. This script shares nothing with the program; it works with
decimal numbers of 50 digits and rounds to doubles only at the places where the program keeps a number (its inputs and
the fields of record and model), so that what it writes is what exact arithmetic gives for those inputs.

    independent_model.py [machines [samples for each [seed]]] > table.txt
    independent_model.py --measured > measured_motor.txt     the motor of docs/maschinenmodell.md and its load curve

Where a result is the small difference of two great numbers, doubles lose the digits that the comparison is about, however
well the program calculates. Such machines and samples are left out; `loss` tells how much greater the two numbers are.

A line is a kind and its fields, separated by blanks: "machine" with the record, "status", "model" with name=value,
"sample" with inputs and both estimates, "limits". "-" stands for what is not known.
"""

import math
import random
import sys
from decimal import Decimal as D, getcontext

getcontext().prec = 50


# --- elementary functions in decimals -------------------------------------------------------------------------------

def arctan(x):
    """Arc tangent by halving the angle until the series converges fast."""
    halvings = 0
    while abs(x) > D("0.05"):
        x = x / (1 + (1 + x * x).sqrt())
        halvings += 1
    term, total, k = x, D(0), 1
    while abs(term) > D(10) ** -60:
        total += term / k
        term = -term * x * x
        k += 2
    return total * 2 ** halvings


PI = 4 * arctan(D(1))


def sine(x):
    x = x % (2 * PI)
    term, total, k = x, D(0), 1
    while abs(term) > D(10) ** -60:
        total += term
        term = -term * x * x / ((k + 1) * (k + 2))
        k += 2
    return total


def cosine(x):
    return sine(x + PI / 2)


def power(base, exponent):
    if base == 0:
        return D(0) if exponent else D(1)
    return (base.ln() * exponent).exp()


def degrees(x):
    return x * 180 / PI


def radians(x):
    return x * PI / 180


def kept(x):
    """A number as a field of the program keeps it."""
    return D(float(x))


# --- formulas -------------------------------------------------------------------------------------------------------

TINY = D(0.000001)
SQRT2 = D(2).sqrt()
SQRT3 = D(3).sqrt()

FITS = {
    1: (180, 110000, {5: "-8e-22", 4: "2e-16", 3: "-1e-11", 2: "2e-8", 1: "0.0531", 0: "117.38"}),
    2: (100, 132000, {5: "2e-21", 4: "-7e-16", 3: "9e-11", 2: "-5e-6", 1: "0.1156", 0: "97.811"}),
    3: (90, 110000, {6: "-1e-25", 5: "5e-20", 4: "-7e-15", 3: "4e-10", 2: "-1e-5", 1: "0.1836", 0: "81.774"}),
    4: (90, 110000, {4: "2e-16", 3: "-2e-11", 2: "6e-8", 1: "0.0624", 0: "202.26"}),
}


def resistance_fit(pmech):
    if pmech is None or pmech == 0:
        return D(0)
    x = abs(pmech) / 1000
    r = D("6.0") / x + D("4.4") / x**2 - D("0.9") / x**3 + D("0.083") / x**4 - D("0.00235") / x**5 - D("0.01")
    return TINY if float(r) == 0 else r


def no_load_fit(pmech, pairs):
    x = abs(pmech)
    if pairs not in FITS or not FITS[pairs][0] <= x <= FITS[pairs][1]:
        return D(0)
    return sum(D(c) * x**k for k, c in FITS[pairs][2].items())


def no_load_at(p, ua, ub, fa, fb):
    if ub == 0 or fb == 0:
        return D(0)
    return p * (ua / ub) ** 2 * power(fa / fb, ua / ub)


def shaft_power(m, n):
    return 2 * PI * m * n / 60


def efficiency(pmech, pel, floor):
    if pel == 0 or pmech == 0:
        return D(0)
    if pmech >= 0:
        return pmech / pel if pel > floor else D(0)
    return pel / pmech if pel < 0 else D(0)


def space_vector_torque(u, i, f, phi, p, rs, connection):
    if phi == 0 or i == 0 or f == 0 or rs == 0:
        return D(0)
    u, i = SQRT2 * u, SQRT2 * i
    if connection == "Y":
        u = u / SQRT3
    else:
        i = i / SQRT3
    ix, iy = i * cosine(radians(phi)), i * sine(radians(phi))
    fx, fy = (u - ix * rs) / (2 * PI * f), iy * rs / (2 * PI * f)
    flux = (fx * fx + fy * fy).sqrt()
    # sin(arctan(fx/fy) - phi) without the arc tangent: the angle lies in the right half plane.
    s = 1 if fy > 0 else -1
    sin_theta, cos_theta = s * fx / flux, s * fy / flux
    across = i * (sin_theta * cosine(radians(phi)) - cos_theta * sine(radians(phi)))
    return D("1.5") * flux * across * p


# --- the model ------------------------------------------------------------------------------------------------------

FIELDS = ["p", "Pmech", "U", "n", "I", "f", "cosphi", "Po", "Uo", "Io", "fo", "con", "Rs", "stall", "Tth", "cl", "mass",
          "zero"]


class Stop(Exception):
    pass


def loss_of(terms, result):
    return max(abs(t) for t in terms) / abs(result) if result else D(1)


def model_loss(rec, m):
    """How many times greater than a result of the model the numbers are whose difference it is."""
    losses = [D(1)]
    for c in "DY":
        if "Mreib_%s_n" % c in m:
            losses.append(loss_of([m["M"]], m["Mreib_%s_n" % c]))
        if "M_RZM_%s_o" % c in m:
            losses.append(loss_of([rec["Uo"] * rec["Io"] * rec["p"] / rec["fo"]], m["M_RZM_%s_o" % c]))
    if "Po_RZM" in m:
        losses.append(loss_of([shaft_power(m["M"], m["n_syn_n"])], m["Po_RZM"]))
    if "k_maschine" in m:
        losses.append(loss_of([m["Pelec_n"]], m["k_maschine"] * m["M"] ** 2))
    return max(losses)


def build(rec):
    """Model of a machine: (values, status, message)."""
    m = {}
    rating, no_load = rec["Pmech"] is not None, rec["Po"] is not None
    status = [rating, no_load, rec["p"] >= 1] + [rec[k] is not None for k in ("con", "Rs", "stall", "Tth", "cl", "mass")]
    message = 0

    def put(name, value):
        m[name] = kept(value)

    try:
        put("Rs_polynom", resistance_fit(rec["Pmech"]))
        put("Rs_rech", rec["Rs"] if rec["Rs"] is not None else m["Rs_polynom"] if rating else TINY)
        if rating:
            rated(rec, m, put)
        if no_load:
            if rating and rec["Io"] > D("1.5") * rec["I"]:
                raise Stop(4)
            idle(rec, m, put, rating)
        if rating and rec["stall"] is not None:
            k = rec["stall"]
            put("Kippschlupf", m["Nennschlupf"] * (k + (k * k - 1).sqrt()))
            put("Kippmoment", k * m["M"])
        if rating and rec["cl"] is not None and rec["mass"] is not None:
            rise = {"A": 60, "B": 80, "F": 105, "H": 125}[rec["cl"]]
            eta = m["eta"]
            put("Tth_ICL", 0 if eta == 0 else rise * rec["mass"] * 445 / ((1 - eta) * abs(rec["Pmech"]) / eta))
        put("Tth", rec["Tth"] if rec["Tth"] is not None else m.get("Tth_ICL", D(0)))
        friction = D(0)
        if not rec["zero"] and rec["con"] is not None:
            if rating:
                friction = m["Mreib_%s_n" % rec["con"]]
            if no_load:
                friction = m["M_RZM_%s_o" % rec["con"]]
        put("Mreib_rech", friction)
        if rec["con"] is not None:
            put("k_RZM", 1)
    except Stop as stop:
        message = stop.args[0]
    return m, status, message


def rated(rec, m, put):
    P, U, n, I, f, cosphi = (rec[k] for k in ("Pmech", "U", "n", "I", "f", "cosphi"))
    put("M", 60 * P / (2 * PI * n))
    put("Pelec_n", SQRT3 * U * I * cosphi)
    # Whole pairs of what a double makes of the quotient: the program's number at the edge is the one that counts.
    p = math.floor(60 * float(f) / float(n)) + (1 if P < 0 else 0)
    rec["p"] = 0
    if p == 0 or p > 10:
        raise Stop(2)
    rec["p"] = p
    put("n_syn_n", 60 * f / p)
    slip = (m["n_syn_n"] - n) / m["n_syn_n"]
    if slip == 0 or abs(slip) >= D("0.5"):
        put("Nennschlupf", 0)
        raise Stop(1)
    put("Nennschlupf", slip)
    put("phi_n", degrees(PI / 2 - arctan(cosphi / (1 - cosphi * cosphi).sqrt())))
    put("Po_regress", 169 * power(abs(P) / 1000, D("0.75")))
    put("Po_polynom", no_load_fit(P, p))
    for c in "DY":
        put("M_RZM_%s_n" % c, space_vector_torque(U, I, f, m["phi_n"], p, m["Rs_rech"], c))
        put("Mreib_%s_n" % c, m["M_RZM_%s_n" % c] - m["M"])
        put("Po_%s_n" % c, shaft_power(m["Mreib_%s_n" % c], m["n_syn_n"]))
    put("Po_RZM", (m["Po_D_n"] + m["Po_Y_n"]) / 2)
    if rec["Po"] is None:
        put("Po_rech", m["Po_polynom"] if m["Po_polynom"] != 0 else m["Po_regress"])
    else:
        put("Po_rech", no_load_at(rec["Po"], U, rec["Uo"], f, rec["fo"]))
        if abs(m["Pelec_n"]) < abs(m["Po_rech"]):
            raise Stop(4)
        if abs((f - rec["fo"]) / f) > D("0.05"):
            raise Stop(8)
    put("eta", efficiency(P, m["Pelec_n"], 0))
    k = ((m["Pelec_n"] - P) - m["Po_rech"] * (n / m["n_syn_n"]) ** 3) / m["M"] ** 2
    if k < 0:
        put("Po_rech", 0)
        k = (m["Pelec_n"] - P) / m["M"] ** 2
    put("k_maschine", k)
    put("R2", (U / f) ** 2 * p * p * (f / p - n / 60) / m["M"])


def idle(rec, m, put, rating):
    Po, Uo, Io, fo = (rec[k] for k in ("Po", "Uo", "Io", "fo"))
    put("cosphi_o", 0)
    cosphi = Po / (SQRT3 * Uo * Io)
    if not 0 < cosphi < 1:
        raise Stop(3)
    put("cosphi_o", cosphi)
    c = m["cosphi_o"]
    put("phi_o", degrees(PI / 2 - arctan(c / (1 - c * c).sqrt())))
    put("n_syn_o", TINY)
    if rec["p"] < 1:
        raise Stop(5)
    put("n_syn_o", 60 * fo / rec["p"])
    speed = m["n_syn_n"] if rating else m["n_syn_o"]
    for c in "DY":
        put("M_RZM_%s_o" % c, space_vector_torque(Uo, Io, fo, m["phi_o"], rec["p"], m["Rs_rech"], c))
        put("Po_%s_o" % c, shaft_power(m["M_RZM_%s_o" % c], speed))


# --- the estimators -------------------------------------------------------------------------------------------------

def speed_from_torque(rec, m, torque, u, f):
    p = rec["p"]
    if u == 0 or p == 0:
        return D(0)
    r2 = m.get("R2", D(0)) if rec["Pmech"] is not None else D(0)
    return 60 * (f / p - r2 * torque * f * f / (p * u) ** 2)


def torque_from_power(rec, m, u, f, p_el, pv):
    """Torque, and how far the result is from a place where it jumps (both as the formulas have them)."""
    p = rec["p"]
    if u == 0 or p == 0:
        return D(0), D(1)
    r2 = m.get("R2", D(0)) if rec["Pmech"] is not None else D(0)
    k = m.get("k_maschine", D(0))
    a = k - 2 * PI * r2 * (f / (p * u)) ** 2
    if a == 0:
        return D(0), D(0)
    b = 2 * PI * f / p
    d = (b / (2 * a)) ** 2 - (pv - p_el) / a
    # Digits that doubles lose here: in the difference that a is, in the difference below the root, and in the sum of
    # the two terms of a root.
    loss = max(abs(k / a), abs((b / (2 * a)) ** 2 / d), 1) if d else D("inf")
    if d < 0:
        return D(0), loss
    r1, r2 = -b / a / 2 + d.sqrt(), -b / a / 2 - d.sqrt()
    root = r1 if abs(r1) < abs(r2) else r2
    loss = max(loss, abs(b / a / 2 / root)) if root else D("inf")
    return root, loss


def balance(rec, m, u, i, f, p_el, phi):
    if f == 0:
        return [D(0)] * 4 + [D(1)]
    u_ref, f_ref = rec["U"] or D(0), rec["f"] or D(0)
    pv = no_load_at(m.get("Po_rech", D(0)), u, u_ref, f, f_ref)
    torque, loss1 = torque_from_power(rec, m, u, f, p_el, pv)
    n = speed_from_torque(rec, m, torque, u, f)
    ns = 60 * f / rec["p"] if rec["p"] else TINY
    pv = pv * (n / ns) ** 3
    torque, loss2 = torque_from_power(rec, m, u, f, p_el, pv)
    n = speed_from_torque(rec, m, torque, u, f)
    pmech = shaft_power(torque, n)
    return [n, torque, pmech, efficiency(pmech, p_el, pv), max(loss1, loss2, loss_of([ns], n))]


def vector(rec, m, u, i, f, p_el, phi):
    if f == 0:
        return [D(0)] * 4 + [D(1)]
    factor = m.get("k_RZM", D(0))
    if rec["Pmech"] is None and rec["Po"] is None and not rec["zero"]:
        factor = D(0.95) if p_el > 0 else D(1.05)
    m0 = space_vector_torque(u, i, f, phi, rec["p"], m["Rs_rech"], rec["con"])
    friction = m.get("Mreib_rech", D(0)) if i > D(0.01) else D(0)
    torque = (m0 - friction) * factor
    n = speed_from_torque(rec, m, torque, u, f)
    pmech = shaft_power(torque, n)
    pv = no_load_at(m.get("Po_rech", D(0)), u, rec["U"] or D(0), f, rec["f"] or D(0))
    loss = max(abs(m0), abs(friction)) / abs(m0 - friction) if m0 != friction else D("inf")
    # An angle near 0 or 180 degrees is the difference of two nearly equal ones within the sine.
    if m0:
        loss = max(loss, abs(u * i * rec["p"] / f / m0))
    if rec["p"]:
        loss = max(loss, loss_of([60 * f / rec["p"]], n))
    return [n, torque, pmech, efficiency(pmech, p_el, pv), loss]


def scale_limit(v, lowest, highest):
    x, e = 2 * abs(v), 0
    while x < 1 and x:
        x, e = x * 10, e - 1
    while x > 10:
        x, e = x / 10, e + 1
    r = (5 if x <= 5 else 10) * D(10) ** e if x else D(0)
    return max(min(r, highest), lowest)


# --- random machines ------------------------------------------------------------------------------------------------

def machine(rng):
    """A record as the page lets it through: groups of data are whole or absent."""
    maybe = lambda chance: rng.random() < chance
    rec = dict.fromkeys(FIELDS)
    number = lambda x, digits=6: D(float("%.*g" % (digits, x)))
    rec["p"] = rng.randint(1, 10) if maybe(0.8) else 0
    rating = maybe(0.8)
    generator = maybe(0.35)
    kilowatts = math.exp(rng.uniform(math.log(0.09), math.log(400)))
    pairs = rng.randint(1, 10)
    U = rng.choice([230, 400, 500, 690])
    f = rng.choice([50, 50, 50, 60, 100, 25])
    slip = rng.uniform(0.004, 0.09)
    losses = rng.uniform(0.04, 0.3)
    cosphi = rng.uniform(0.55, 0.95)
    sign = -1 if generator else 1
    mechanical = kilowatts * 1000 * sign
    electrical = mechanical / (1 - losses) if not generator else mechanical * (1 - losses)
    I = abs(electrical) / (math.sqrt(3) * U * cosphi)
    if rating:
        rec["Pmech"] = number(mechanical)
        rec["U"], rec["f"] = D(U), D(f)
        rec["n"] = number(60 * f / pairs * (1 - sign * slip))
        rec["I"], rec["cosphi"] = number(I), number(sign * cosphi)
        if maybe(0.03):
            rec["n"] = number(rng.uniform(1, 60 * f))  # hardly a machine: messages 1 and 2
    if maybe(0.45):
        idle_factor = rng.uniform(0.05, 0.25)
        rec["Uo"] = number(U * rng.uniform(0.9, 1.05))
        rec["Io"] = number(I * rng.uniform(0.25, 0.7))
        rec["fo"] = number(f * rng.uniform(0.96, 1.04))
        rec["Po"] = number(math.sqrt(3) * float(rec["Uo"]) * float(rec["Io"]) * idle_factor)
        fault = rng.random()
        if fault < 0.04:
            rec["Io"] = number(I * 2)
        elif fault < 0.08:
            rec["fo"] = number(f * 1.08)
        elif fault < 0.12:
            rec["Po"] = number(abs(electrical) * 1.5)
    if maybe(0.7):
        rec["con"] = rng.choice("YD")
    if maybe(0.5):
        rec["Rs"] = number(rng.uniform(0.3, 2) * (6 / kilowatts))
    if maybe(0.5):
        rec["stall"] = number(rng.uniform(1.2, 4))
    if maybe(0.4):
        rec["Tth"] = number(rng.uniform(60, 6000))
    if maybe(0.6):
        rec["cl"] = rng.choice("ABFH")
    if maybe(0.6):
        rec["mass"] = number(10 * kilowatts)
    rec["zero"] = maybe(0.15)
    return rec, U, f, I


def sample(rng, U, f, I):
    u = D(U * rng.uniform(0.85, 1.1))
    i = D(I * rng.uniform(0.05, 1.5)) if rng.random() < 0.95 else D(rng.choice([0, 0.005, 0.01, 0.02]))
    frequency = D(f * rng.uniform(0.9, 1.1)) if rng.random() < 0.97 else D(0)
    # Not too near to an angle at which the torque of a machine vanishes.
    phi = D(rng.uniform(5, 80) if rng.random() < 0.7 else rng.uniform(100, 175))
    if rng.random() < 0.1:
        phi = -phi
    if rng.random() < 0.03:
        phi = D(0)
    p_el = D(float(SQRT3 * u * i * cosine(radians(phi)))) if rng.random() < 0.97 else D(0)
    return u, i, frequency, p_el, phi


def text(value):
    if value is None:
        return "-"
    if isinstance(value, (str, int)) and not isinstance(value, bool):
        return str(value)
    if isinstance(value, bool):
        return "1" if value else "0"
    return repr(float(value))


def put_machine(entered, rec, m, status, message):
    """Writes what follows from a machine; whether it can be used for estimation."""
    print("machine", *entered)
    valid = message == 0 and (status[0] or (status[2] and status[3]))
    print("status", message, int(valid), rec["p"], "".join("01"[s] for s in status))
    print("model", *["%s=%s" % (k, text(v)) for k, v in m.items()])
    if message == 0 and status[0]:
        limits = [(rec["U"], "5", "100000"), (rec["I"], "0.5", "100000"), (m["Pelec_n"], "0.1", "100000000"),
                  (rec["f"], "10", "500"), (m["M"], "0.1", "10000"), (rec["n"], "10", "10000")]
        print("limits", *[text(scale_limit(v, D(a), D(b))) for v, a, b in limits])
    return valid


def put_sample(values, results):
    print("sample", *[text(v) for v in values], *[text(v) for r in results for v in r[:4]])


# Current, power factor: the measured load curve, from a tenth of the load to 120 %.
CURVE = [("11.20", "0.327"), ("12.27", "0.506"), ("13.87", "0.636"), ("16.41", "0.741"), ("18.78", "0.797"),
         ("21.07", "0.831"), ("23.92", "0.857"), ("27.05", "0.875"), ("29.40", "0.887"), ("32.85", "0.896"),
         ("35.92", "0.902"), ("39.35", "0.906")]
PLATE = {"p": 0, "Pmech": "18500", "U": "400", "n": "1462.5", "I": "32.85", "f": "50", "cosphi": "0.898"}
NO_LOAD = {"Uo": "400", "Io": "11", "fo": "50"}


def measured_motor():
    """The measured motor with and without its no-load test and its stator resistance, over its load curve."""
    exact = lambda word: D(float(word))
    for with_no_load in (True, False):
        for with_resistance in (True, False):
            rec = dict.fromkeys(FIELDS)
            rec.update({k: exact(v) if k != "p" else v for k, v in PLATE.items()})
            rec["con"], rec["zero"] = "D", False
            if with_no_load:
                rec.update({k: exact(v) for k, v in NO_LOAD.items()})
                rec["Po"] = kept(SQRT3 * 400 * 11 * D("0.085"))
            if with_resistance:
                rec["Rs"] = exact("0.56")
            entered = [text(rec[k]) for k in FIELDS]
            m, status, message = build(rec)
            put_machine(entered, rec, m, status, message)
            for current, factor in CURVE:
                i, cosphi = exact(current), exact(factor)
                phi = kept(degrees(PI / 2 - arctan(cosphi / (1 - cosphi * cosphi).sqrt())))
                values = (D(400), i, D(50), kept(SQRT3 * 400 * i * cosphi), phi)
                put_sample(values, [estimator(rec, m, *values) for estimator in (vector, balance)])


def main():
    if sys.argv[1:] == ["--measured"]:
        measured_motor()
        return
    arguments = [int(a) for a in sys.argv[1:]] + [None] * 3
    machines, samples, seed = arguments[0] or 600, arguments[1] or 4, arguments[2] or 20260314
    rng = random.Random(seed)
    most_loss = D(200)
    while machines > 0:
        rec, U, f, I = machine(rng)
        entered = [text(rec[k]) for k in FIELDS]
        m, status, message = build(rec)
        if model_loss(rec, m) > most_loss:
            continue
        machines -= 1
        if not put_machine(entered, rec, m, status, message):
            continue
        done = 0
        while done < samples:
            values = sample(rng, U, f, I)
            results = [estimator(rec, m, *values) for estimator in (vector, balance)]
            if any(r[4] > most_loss or r[4] * model_loss(rec, m) > 5 * most_loss for r in results):
                continue
            put_sample(values, results)
            done += 1


if __name__ == "__main__":
    main()
