#!/usr/bin/env python3
"""A second calculation of the simulation, to compare the program's with.

It shares nothing with the program. Working values and points are calculated with decimal numbers of 50 digits and
rounded to doubles only where the program keeps a number; they have to agree to 1e-12. Results of whole recordings are
calculated with doubles, all sums in one fixed order.

  independent_simulation.py points [machines [points for each [seed]]]  machines, and what they do at single points
  independent_simulation.py recordings [count [seed]]                   recordings: their rows, energies and evaluation
  independent_simulation.py evaluations [count [seed]]                  evaluation of given rows, to the last bit

Where a result is the small difference of two great numbers, doubles lose the digits that the comparison is about,
however well the program calculates. Such machines and points are left out; `loss` tells how much greater the numbers
are than their difference.

A line is a kind and its fields, separated by blanks. "-" stands for what is not known.
"""

import math
import random
import sys
from decimal import Decimal as D
from pathlib import Path

sys.path[:0] = [str(Path(__file__).parent.parent / room) for room in ("machine", "evaluation")]
import independent_evaluation as evaluation  # noqa: E402
import independent_model as model  # noqa: E402
from independent_evaluation import ETA, F, LOSS, M, N, P, PMECH, U, WP, WP_MINUS, WP_PLUS  # noqa: E402

FIELDS = ["p", "Pmech", "U", "M", "n", "I", "f", "cosphi", "Po", "Uo", "fo", "stall"]
WORKING = ["Pel", "stall", "n_syn", "slip", "regress", "polynom", "rech", "k"]
PLATE = ["Pmech", "U", "n", "I", "f", "cosphi"]
MOST_LOSS = D(200)


def ratio_of_loss(terms, result):
    return max(abs(t) for t in terms) / abs(result) if result else D("inf")


def sign(x):
    return (x > 0) - (x < 0)


# ---- working values -------------------------------------------------------------------------------------------------

def prepare(rec):
    """(message, working values in the order of their steps up to the one that fails, loss)."""
    w, losses = {}, [D(1)]

    def put(name, value):
        w[name] = model.kept(value)

    if any(rec[name] is None for name in PLATE):
        return 1, w, D(1)
    pmech, rated_u, n, current, f, cosphi = (rec[name] for name in PLATE)
    p, torque = rec["p"], rec["M"] or D(0)
    put("Pel", abs(model.SQRT3 * rated_u * current * cosphi))
    put("stall", (rec["stall"] or D(0)) * torque)
    if p < 1:
        return 1, w, D(1)
    put("n_syn", 60 * f / p)
    if w["n_syn"] == 0:
        return 1, w, D(1)
    slip = (w["n_syn"] - n) / w["n_syn"]
    if slip == 0 or abs(slip) >= D("0.5"):
        near = abs(abs(slip) - D("0.5")) < D("1e-9") and abs(slip) != D("0.5")
        return 1, w, D("inf") if near else D(1)
    losses.append(ratio_of_loss([w["n_syn"], n], w["n_syn"] - n))
    put("slip", slip)
    put("regress", 169 * model.power(abs(pmech) / 1000, D("0.75")))
    put("polynom", model.no_load_fit(pmech, p))
    if rec["Po"] is None:
        put("rech", w["polynom"] if w["polynom"] != 0 else w["regress"])
    else:
        put("rech", model.no_load_at(rec["Po"], rated_u, rec["Uo"], f, rec["fo"]))
        if w["Pel"] < abs(w["rech"]):
            return 4, w, max(losses)
        if abs((f - rec["fo"]) / f) > D("0.05"):
            return 8, w, max(losses)
    signed = w["Pel"] * sign(pmech)
    if torque == 0:
        put("k", 0)
        return 0, w, max(losses)
    at_speed = w["rech"] * (n / w["n_syn"]) ** 3
    k = (signed - pmech - at_speed) / torque ** 2
    losses.append(ratio_of_loss([signed, pmech, at_speed], signed - pmech - at_speed))
    if k < 0:
        put("rech", 0)
        k = (signed - pmech) / torque ** 2
        losses.append(ratio_of_loss([signed, pmech], signed - pmech))
    put("k", k)
    return 0, w, max(losses)


def second_machine(rec, w):
    """U, f, M, p, slip, no-load power and k as the points take them; the loss of k."""
    pmech, torque = rec["Pmech"], rec["M"] or D(0)
    signed = w["Pel"] * sign(pmech)
    rest = signed - pmech - w["rech"]
    k = D(0) if torque == 0 else rest / torque ** 2
    loss = D(1) if torque == 0 else ratio_of_loss([signed, pmech, w["rech"]], rest)
    return [rec["U"], rec["f"], torque, rec["p"], w["slip"], w["rech"], k], loss


# ---- one point ------------------------------------------------------------------------------------------------------

def loss_power(p, pmech):
    if p > 0 and pmech < 0:
        return abs(pmech) + p
    return abs(abs(p) - abs(pmech))


def point(machine, torque, u, f):
    """[n, Pmech, P, eta, lost power] and the loss of digits in them."""
    rated_u, rated_f, rated_m, p, slip, no_load, k = machine
    losses = [D(1)]
    at_rated_slip = D(0) if f == 0 or rated_u == 0 else rated_m * (u / rated_u) ** 2 * (rated_f / f) ** 2
    slip_here = D(0) if f == 0 else rated_f / f * slip
    n = D(0)
    if at_rated_slip != 0 and p != 0:
        drop = torque / at_rated_slip * slip_here
        n = (1 - drop) * 60 * f / p
        losses.append(ratio_of_loss([D(1), drop], 1 - drop))
    pmech = 2 * model.PI * n * torque / 60
    pv = D(0)
    if p != 0 and f != 0 and rated_f != 0 and rated_u != 0:
        pv = model.no_load_at(no_load, u, rated_u, f, rated_f) * (n / (60 * f / p)) ** 3
    loads = torque ** 2 * k
    power = loads + pmech + pv
    if any((loads, pmech, pv)):
        losses.append(ratio_of_loss([loads, pmech, pv], power))
    eta = model.efficiency(pmech, power, pv)
    if pmech > 0 and power != pv and abs(power - pv) < abs(power) * D("1e-9"):
        losses.append(D("inf"))
    lost = loss_power(power, pmech)
    if lost != 0:
        losses.append(losses[-1] * ratio_of_loss([power, pmech], lost))
    elif power != 0:
        losses.append(D("inf"))
    return [n, pmech, power, eta, lost], max(losses)


# ---- random machines ------------------------------------------------------------------------------------------------

def number(x, digits=6):
    return D(float("%.*g" % (digits, x)))


def random_machine(rng):
    """A record of the second machine, and the torque of its rating."""
    maybe = lambda chance: rng.random() < chance
    rec = dict.fromkeys(FIELDS)
    generator = maybe(0.35)
    sgn = -1 if generator else 1
    kilowatts = math.exp(rng.uniform(math.log(0.09), math.log(400)))
    pairs = rng.choice([1, 2, 2, 2, 3, 3, 4, 4, 5, 6, 8, 10])
    u, f = rng.choice([230, 400, 400, 500, 690]), rng.choice([50, 50, 50, 60, 100, 25])
    slip, losses, cosphi = rng.uniform(0.004, 0.09), rng.uniform(0.04, 0.3), rng.uniform(0.55, 0.95)
    mechanical = kilowatts * 1000 * sgn
    electrical = mechanical * (1 - losses) if generator else mechanical / (1 - losses)
    current = abs(electrical) / (math.sqrt(3) * u * cosphi)
    speed = 60 * f / pairs * (1 - sgn * slip)
    torque = mechanical * 60 / (2 * math.pi * speed)
    rec["p"] = pairs
    rec["Pmech"], rec["U"], rec["f"] = number(mechanical), D(u), D(f)
    rec["n"], rec["I"] = number(speed), number(current)
    # The sign of the factor is entered or not; the magnitude of the power is what counts.
    rec["cosphi"] = number(cosphi * (sgn if maybe(0.7) else 1))
    rec["M"] = number(torque)
    if maybe(0.4):
        rec["Po"] = number(abs(electrical) * rng.uniform(0.005, 0.5 * losses))
        rec["Uo"], rec["fo"] = D(u), D(f)
        if maybe(0.7):
            rec["Uo"], rec["fo"] = number(u * rng.uniform(0.5, 1.1)), number(f * rng.uniform(0.955, 1.045))
        fault = rng.random()
        if fault < 0.05:
            rec["fo"] = number(f * rng.choice([0.94, 1.06, 0.8, 2]))
        elif fault < 0.08:
            rec["fo"] = D(f) * D("1.05")
        elif fault < 0.13:
            rec["Po"] = number(abs(electrical) * 3)
        elif fault < 0.16:
            rec["Uo"] = D(0)
        elif fault < 0.19:
            rec["Po"] = D(0)
        elif fault < 0.24:
            rec["Po"] = -rec["Po"]
        elif fault < 0.5:
            rec["Po"] = number(abs(electrical) * losses * rng.uniform(0.5, 1.5))
    if maybe(0.6):
        rec["stall"] = number(rng.uniform(1.2, 4))
    strange = rng.random()
    if strange < 0.03:
        rec["M"] = None
    elif strange < 0.06:
        rec["M"] = D(0)
    elif strange < 0.09:
        rec["M"] = -rec["M"]
    elif strange < 0.12:
        rec["p"] = rng.choice([0, 0, -1, pairs + 3])
    elif strange < 0.15:
        for name in PLATE:
            rec[name] = None
        rec["M"] = None
    elif strange < 0.18:
        rec["n"] = D(60) * f / pairs  # hardly a machine: no slip
    elif strange < 0.20:
        rec["n"] = number(60 * f / pairs * rng.choice([0.5, 0.4, 1.5, 1.7, -1]))
    elif strange < 0.26:
        rec["I"] = number(current * rng.uniform(0.3, 0.8))  # delivers more than it takes
    elif strange < 0.28:
        rec["f"] = D(0)
    return rec, D(torque), D(u), D(f)


def random_point(rng, torque, u, f):
    """Torque, voltage and frequency near those of a rating, now and then far from them or zero."""
    x = [number(float(torque) * rng.uniform(-1.8, 1.8), 4), number(float(u) * rng.uniform(0.75, 1.15), 4),
         number(float(f) * rng.uniform(0.85, 1.1), 4)]
    if rng.random() < 0.15:
        x[0] = number(float(torque) * rng.choice([1, 5, 30, -30, 0.001]), 5)
    if rng.random() < 0.1:
        x[rng.randrange(3)] = D(0)
    if rng.random() < 0.05:
        x[1], x[2] = number(float(u) * rng.uniform(0.02, 2), 4), number(float(f) * rng.uniform(0.02, 3), 4)
    if rng.random() < 0.03:
        x[1] = -x[1]
    return x


def loose_machine(rng, u, f, torque):
    """Numbers that no record need have: what is missing is 0."""
    machine = [u, f, number(float(torque), 5), rng.randint(1, 8), number(rng.uniform(-0.09, 0.09), 4),
               number(rng.uniform(0, 500), 4), number(rng.uniform(-0.05, 0.1), 4)]
    for index in range(len(machine)):
        if rng.random() < 0.12:
            machine[index] = 0 if index == 3 else D(0)
    return machine


def text(value):
    if value is None:
        return "-"
    if isinstance(value, int):
        return str(value)
    value = float(value)
    return str(int(value)) if value == int(value) and abs(value) < 1e6 else "%.15g" % value


def exact(value):
    return "-" if value is None else str(value) if isinstance(value, int) else shortest(float(value))


def shortest(value):
    return str(int(value)) if value == int(value) and abs(value) < 1e6 else repr(value)


def print_points(machines, points, seed):
    rng = random.Random(seed)
    while machines > 0:
        rec, torque, u, f = random_machine(rng)
        message, w, loss = prepare(rec)
        if loss > MOST_LOSS:
            continue
        if message == 0 and second_machine(rec, w)[1] > MOST_LOSS:
            continue
        machines -= 1
        print("machine", *[exact(rec[name]) for name in FIELDS])
        print("working", message, *["%s=%s" % (name, text(w[name])) for name in WORKING if name in w])
        done = 0
        while done < points:
            if message == 0 and rng.random() < 0.8:
                kind = "row"
                machine, loss_of_k = second_machine(rec, w)
            else:
                kind, machine, loss_of_k = "loose", loose_machine(rng, u, f, torque), D(1)
            x = random_point(rng, torque, u, f)
            results, loss = point(machine, *x)
            if loss * loss_of_k > MOST_LOSS:
                continue
            print(kind, *[exact(v) for v in (machine if kind == "loose" else []) + x], *[text(v) for v in results])
            done += 1


# ---- recordings, in doubles -----------------------------------------------------------------------------------------

def row_in_doubles(machine, torque, u, f):
    """n, Pmech, P, eta."""
    rated_u, rated_f, rated_m, p, slip, no_load, k = machine
    at_rated_slip = 0.0 if f == 0 or rated_u == 0 else rated_m * (u / rated_u) ** 2 * (rated_f / f) ** 2
    slip_here = 0.0 if f == 0 else rated_f / f * slip
    n = 0.0 if at_rated_slip == 0 or p == 0 else (1 - torque / at_rated_slip * slip_here) * 60 * f / p
    pmech = 2 * math.pi * n * torque / 60
    pv = 0.0
    if p != 0 and f != 0 and rated_f != 0 and rated_u != 0:
        pv = no_load * (u / rated_u) ** 2 * (f / rated_f) ** (u / rated_u) * (n / (60 * f / p)) ** 3
    power = torque ** 2 * k + pmech + pv
    return n, pmech, power, evaluation.energy_ratio(pmech, power, pv)


class Energies:
    def __init__(self):
        self.total = self.plus = self.minus = self.last = 0.0

    def step(self, power, t):
        step = (t - self.last) * power
        self.last = t
        if step >= 0:
            self.plus += step
        else:
            self.minus += step
        self.total += step


EXTREMES = [U, F, P, N, M, PMECH, ETA]
RMS = [P, M, PMECH]
MEANS = [P, M, PMECH, LOSS]
ENERGIES = [0, 4, 5, 6, 8, 12, 13, 14]
UTILISATION = [0, 2, 3, 4, 5, 7, 8, 9, 10]


def print_evaluation(recording, options):
    """Only what the second machine has: no current, no apparent and reactive power."""
    word = evaluation.word
    try:
        e = evaluation.Evaluation(recording, options)
    except evaluation.Fault:
        print("fault")
        return
    print("extremes", *[f"{word(entry[0])} {entry[1]}" for q in EXTREMES for entry in (e.extrem_min[q],
                                                                                       e.extrem_max[q])])
    print("rms", *[f"{word(entry[0])} {entry[1]}" for c in RMS for entry in (e.rms_min[c], e.rms_max[c])])
    print("means", *[f"{word(entry[0])} {entry[1]}" for c in MEANS for entry in (e.avg_min[c], e.avg_max[c])])
    print("energy", *[word(x) for index in ENERGIES for x in e.energy[index]])
    print("use", *[f"{word(e.asm[i]['value'])} {word(e.asm[i]['ratio'])} {word(e.asm[i]['set'])} {e.asm[i]['rating']}"
                   for i in UTILISATION])
    print("classes", *e.classes, word(e.window_rows))


def evaluation_options(rng, rec):
    options = evaluation.Options()
    options.configuration = rng.choice([2, 5])
    options.dt = rng.choice([1.0, 0.5, 7.0, 60.0])
    options.window_size = options.dt * rng.choice([0.3, 1.0, 2.4, 5.0, 17.9, 40.0, 1000.0])
    options.prices = rng.choice([[0.15, 0.07, 0.03], [0.3127, -0.11, 0.05]])
    options.cycles = rng.choice([10, 1, 365])
    options.is_machine_valid = True
    double = lambda x: None if x is None else float(x)
    options.rated = {name: double(rec[name]) for name in ("U", "I", "f", "n", "M", "Pmech")}
    options.rated["Mkipp_Mn"] = double(rec["stall"])
    options.pel = math.copysign(math.sqrt(3) * double(rec["U"]) * double(rec["I"]) * double(rec["cosphi"]), rec["Pmech"])
    options.kipp = double(rec["stall"] or D(0)) * double(rec["M"])
    return options


def machine_for_recording(rng):
    while True:
        rec, torque, u, f = random_machine(rng)
        message, w, loss = prepare(rec)
        if message == 0 and loss < MOST_LOSS and second_machine(rec, w)[1] < MOST_LOSS and rec["M"]:
            return rec, w, torque, u, f


def print_case(options, rec, count):
    print("case", options.configuration, shortest(options.dt), shortest(options.window_size),
          *[shortest(x) for x in options.prices], options.cycles, count)
    print("machine", *[exact(rec[name]) for name in FIELDS])


def blank_row():
    return [0.0] * evaluation.QUANTITIES


def print_recordings(count, seed):
    rng = random.Random(seed)
    for case in range(count):
        rec, w, torque, u, f = machine_for_recording(rng)
        options = evaluation_options(rng, rec)
        sets = [0, 1, 2, 30][case] if case < 4 else rng.randint(5, 90)
        print_case(options, rec, sets)
        machine = [float(v) if i != 3 else int(v) for i, v in enumerate(second_machine(rec, w)[0])]
        energies, t = Energies(), 0 if rng.random() < 0.6 else 17
        recording = []
        while len(recording) < sets:
            x = random_point(rng, torque, u, f)
            x[0] = number(float(x[0]) * rng.uniform(0.9, 1.1), 5)  # no two alike: rounding would choose between them
            _, loss = point(second_machine(rec, w)[0], *x)
            if loss > MOST_LOSS:
                continue
            values = [float(v) for v in x]
            n, pmech, power, eta = row_in_doubles(machine, *values)
            energies.step(power, float(t))
            row = blank_row()
            row[M], row[U], row[F] = values
            row[N], row[PMECH], row[P], row[ETA] = n, pmech, power, eta
            row[WP], row[WP_PLUS], row[WP_MINUS] = energies.total, energies.plus, energies.minus
            recording.append((row, False))
            print("set", *[shortest(v) for v in values], t,
                  *[text(v) for v in (n, pmech, power, eta, energies.total, energies.plus, energies.minus)])
            # Rejected samples leave gaps, a set copied by hand has the time of another; whole seconds are stored.
            t += max(1, int(options.dt)) * rng.choice([1, 1, 1, 1, 1, 3, 0])
        print_evaluation(recording, options)


def random_result(rng, rec, profile):
    row = blank_row()
    share = rng.uniform(-1.5, 1.5) if profile != "motor" else rng.uniform(0, 1.4)
    if profile == "coarse":
        share = rng.choice([-1.0, -0.5, 0.0, 0.5, 1.0])
    number3 = lambda x: float("%.4g" % x) + 0.0  # a zero without a sign
    row[U] = number3(400 * rng.uniform(0.86, 1.14)) if profile != "coarse" else rng.choice([360.0, 380.0, 400.0, 440.0])
    row[F] = number3(50 * rng.uniform(0.94, 1.06)) if profile != "coarse" else rng.choice([47.5, 49.0, 50.0, 52.5])
    row[P] = number3(float(rec["Pmech"]) * share * 1.2)
    row[M] = number3(float(rec["M"]) * share)
    row[N] = number3(1500 * (1 - 0.03 * share))
    row[PMECH] = number3(float(rec["Pmech"]) * share * rng.uniform(0.8, 1))
    row[ETA] = number3(rng.uniform(0, 1.001))
    if profile == "wild" and rng.random() < 0.06:
        row[rng.choice([U, F, P, N, M, PMECH, ETA])] *= rng.choice([-1.0, 1e5, 1e10])
    if rng.random() < 0.05:
        row[P] = 0.0
    return row


def print_evaluations(count, seed):
    rng = random.Random(seed)
    for case in range(count):
        rec, _, _, _, _ = machine_for_recording(rng)
        options = evaluation_options(rng, rec)
        profile = rng.choice(["motor", "mixed", "coarse", "wild"])
        width = math.floor(options.window_size / options.dt) + 1
        sets = [1, 2, width - 1, width, width + 1][case % 9] if case % 9 < 5 else rng.randint(3, 110)
        sets = max(1, min(sets, 110))
        print_case(options, rec, sets)
        recording = []
        for _ in range(sets):
            row = random_result(rng, rec, profile)
            print("set", *[shortest(row[q]) for q in (M, U, F, N, PMECH, P, ETA)])
            recording.append((row, False))
        print_evaluation(recording, options)


def main(arguments):
    kind = arguments[0] if arguments else ""
    numbers = [int(a) for a in arguments[1:]]
    or_else = lambda index, otherwise: numbers[index] if len(numbers) > index else otherwise
    if kind == "points":
        print_points(or_else(0, 450), or_else(1, 3), or_else(2, 20260314))
    elif kind == "recordings":
        print_recordings(or_else(0, 16), or_else(1, 20260314))
    elif kind == "evaluations":
        print_evaluations(or_else(0, 36), or_else(1, 20260314))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
