#!/usr/bin/env python3
"""A second calculation of what the editor's operations make of a recording, to compare the program's with.

It shares nothing with the program: lists of rows instead of tables, and the load of a machine from the second
calculation in ../machine. Writes random recordings, the operations done to each in turn, and the sets that are there
afterwards.

  independent_editor.py [recordings [seed]] > data/random_edits.txt

A line is a kind and its words, separated by blanks:

  case CONFIGURATION INTERVAL METHOD                     a recording begins
  machine ...                                            the machine's record, in the configuration that has one
  row T MARK STAMPED NUMBERS... [LETTER]                 a set as it is recorded, in order
  dup FIRST COUNT, del FIRST COUNT, mid FIRST COUNT      duplicate, delete, interpolate
  number, every INTERVAL, edit SET COLUMN VALUE          renumber the times, change the interval, enter a value
  method METHOD, energies, first                         change the method, form the energies, make the first set
  then INTERVAL METHOD                                   the sets that are expected follow, and what the project holds
  set T MARK STAMPED NUMBERS... [LETTER]
  end

"?" stands for a number that no rule tells. Where the last bits of a number decide on a result (an angle of nearly 0,
a small difference of great numbers), program and script may differ without either being wrong: such recordings are
thrown away and drawn anew.
"""

import copy
import math
import os
import random
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "machine"))
import independent_model as machines  # noqa: E402

MEASURED = ["U", "I", "f", "P", "phi"]
DERIVED = ["Q", "S", "cosphi"]
ENERGIES = ["Wp", "Wp+", "Wp-", "Wq"]
ESTIMATES = ["n", "M", "Pmech", "eta"]
PHASES = ["U1", "U2", "U3"]
FIELDS = {
    0: MEASURED + DERIVED + ENERGIES,
    1: MEASURED + DERIVED + ENERGIES,
    2: MEASURED + DERIVED + ENERGIES + ESTIMATES,
    6: ["U"] + PHASES + ["f"],
}
EDITABLE = {0: "UIfPQ", 1: "UIfPQ", 2: "UIfPQ", 6: ["U", "f"] + PHASES}
CORRECTED = 255

# Nearer than this to a place where a result jumps or loses its digits, nothing is compared.
NARROW = 1e-5
MOST_LOSS = 3e5


class TooNarrow(Exception):
    """The last bits decide."""


def require_digits(value, *terms):
    """Of a sum: that it is not a small difference of great numbers."""
    greatest = max(abs(t) for t in terms)
    if 0 < abs(value) < NARROW * greatest or value == 0 and greatest > 0 and len(set(map(abs, terms))) > 1:
        raise TooNarrow


class Row(dict):
    """One set: numbers by name, with t, mark, stamped, letter."""


class Recording:
    def __init__(self, configuration, interval, method, machine=None):
        self.configuration = configuration
        self.interval = interval
        self.method = method
        self.machine = machine  # (record, model) of a valid one
        self.rows = []

    # ---- single sets ----

    def has(self, name):
        return name in FIELDS[self.configuration]

    def derive(self, row):
        """S, Q, cos phi and phi of U, I and P; the sign of the former phi says which way the current is shifted."""
        s = row["U"] * row["I"] * (math.sqrt(3) if self.configuration == 1 else 1)
        p = row["P"]
        c = abs(p / s) if s != 0 else 0.0
        if 0 < abs(c - 1) < NARROW or c == 1 and not row.get("exact"):
            raise TooNarrow
        q = 0.0 if abs(p) >= abs(s) else math.sqrt(s * s - p * p)
        phi = 0.0 if c >= 1 or s == 0 else math.degrees(math.acos(c))
        if p < 0:
            phi, c = 180 - phi, -c
        if row["phi"] < 0:
            phi, q = -phi, -q
        row.update(S=s, Q=q, cosphi=c, phi=phi)

    def estimate(self, row):
        if self.configuration != 2 or self.machine is None:
            return
        record, model = self.machine
        values = [machines.D(row[name]) for name in MEASURED]
        if self.method == 0 and abs(abs(row["phi"]) - 180) < NARROW and row["I"] and row["f"]:
            raise TooNarrow  # the torque changes its sign there
        results = (machines.balance if self.method == 1 else machines.vector)(record, model, *values)
        if results[4] * machines.model_loss(record, model) > MOST_LOSS:
            raise TooNarrow
        row.update(zip(ESTIMATES, map(float, results)))
        row["letter"] = "VP"[self.method]

    def compute(self, row, with_quantities=True):
        if with_quantities and self.configuration != 6:
            self.derive(row)
        row.pop("exact", None)
        self.estimate(row)
        row["mark"] = CORRECTED

    # ---- operations ----

    def contains(self, first, count):
        return count > 0 and first >= 1 and first + count - 1 <= len(self.rows)

    def number(self):
        for i, row in enumerate(self.rows):
            row["t"] = whole(i * self.interval)

    def dup(self, first, count):
        if not self.contains(first, count):
            return
        copies = copy.deepcopy(self.rows[first - 1:first - 1 + count])
        for row in copies:
            row["stamped"] = 0
        self.rows[first - 1:first - 1] = copies
        self.number()

    def delete(self, first, count):
        if not self.contains(first, count):
            return
        del self.rows[first - 1:first - 1 + count]
        self.number()

    def mid(self, first, count):
        if not (count > 0 and first >= 2 and first + count - 1 < len(self.rows)):
            return
        before, behind = self.rows[first - 2], self.rows[first + count - 1]
        for k in range(1, count + 1):
            row = self.rows[first - 2 + k]
            for name in "UIfP":
                if self.has(name):
                    row[name] = between(before[name], behind[name], k / (count + 1))
            self.compute(row)

    def every(self, interval):
        self.interval = interval
        if not self.rows:
            return
        source, self.rows = self.rows, []
        most = math.floor(source[-1]["t"] / interval) + 1
        self.rows.append(by_hand(source[0]))
        t, behind = source[0]["t"], 0
        while len(self.rows) < most:
            target = t + interval
            while behind < len(source) and source[behind]["t"] < target:
                behind += 1
            if behind == len(source):
                break
            a, b = source[behind - 1], source[behind]
            row = by_hand(b)
            for name in "U", "I", "f", "P", "phi":
                if self.has(name):
                    row[name] = between(a[name], b[name], (target - a["t"]) / (b["t"] - a["t"]))
            t = round(target, 2)
            row["t"] = whole(t)
            self.compute(row)
            self.rows.append(row)

    def edit(self, number, column, value):
        row = self.rows[number - 1]
        if column == "Q":
            row["phi"] = -abs(row["phi"]) if value < 0 else abs(row["phi"])
        else:
            row[column] = value
        if self.configuration in (0, 2):
            row["exact"] = all(row[name] == int(row[name]) for name in "UIP")
        self.compute(row)

    def change_method(self, method):
        self.method = method
        for row in self.rows:
            self.compute(row, with_quantities=False)

    def energies(self):
        plus = minus = reactive = last = total = 0.0
        for row in self.rows:
            step = (row["t"] - last) * row["P"]
            step_q = (row["t"] - last) * row["Q"]
            last = row["t"]
            if step >= 0:
                plus += step
            else:
                minus += step
            require_digits(total + step, total, step)
            require_digits(reactive + step_q, reactive, step_q)
            total += step
            reactive += step_q
            row.update({"Wp": total, "Wp+": plus, "Wp-": minus, "Wq": reactive})

    def first(self):
        row = Row({name: "?" for name in FIELDS[self.configuration]})
        row.update(U=380.0, I=1.0, f=50.0, P=100.0, phi=74.74, t=0, stamped=0, letter="?")
        row.update({name: 0.0 for name in ENERGIES})
        self.compute(row)
        self.rows.append(row)


def whole(seconds):
    """As a column of whole numbers takes it: a half goes to the even one."""
    return round(seconds)


def between(a, b, share):
    value = a + (b - a) * share
    require_digits(value, a, b)
    return value


def by_hand(row):
    row = Row(row)
    row.update({name: 0.0 for name in ENERGIES})
    row.update(mark=CORRECTED, stamped=0)
    return row


# ---- random recordings -------------------------------------------------------------------------------------------

def random_machine(rng):
    """A record whose derived numbers keep their digits, its model if it is valid, and a scale for samples."""
    while True:
        record, u, f, i = machines.machine(rng)
        entered = [machines.text(record[name]) for name in machines.FIELDS]
        model, status, message = machines.build(record)
        if message != 0 or machines.model_loss(record, model) > 100:
            continue
        is_valid = status[0] or status[2] and status[3]
        methods = [m for m, is_possible in enumerate((status[3], status[0])) if is_possible]
        if is_valid or rng.random() < 0.3:
            return entered, (record, model) if is_valid else None, methods if is_valid else [0, 1], (u, i, f)


def random_row(rng, recording, scale):
    u, i, f = scale
    kind = rng.choice(["motor"] * 6 + ["generator"] * 3 + ["none", "over"])
    row = Row()
    row["U"] = round(u * rng.uniform(0.85, 1.1), 2)
    row["I"] = round(i * rng.uniform(0.05, 1.4), 3)
    row["f"] = round(f * rng.uniform(0.95, 1.05), 2)
    if kind == "none":
        row[rng.choice("UI")] = 0.0
    s = row["U"] * row["I"] * (math.sqrt(3) if recording.configuration == 1 else 1)
    c = rng.uniform(0.1, 0.97) if kind != "over" else rng.uniform(1.001, 1.1)
    c = -c if kind == "generator" else c
    row["P"] = round(s * c, 1) if s else float(rng.choice([0, 0, 12, -7]))
    row["phi"] = round(math.degrees(math.acos(max(-1, min(1, c)))), 1)
    if rng.random() < 0.3:
        row["phi"] = -row["phi"]
    # As an instrument gives them: not quite what follows from the rest.
    row["S"] = round(s, 1)
    row["cosphi"] = round(c, 3)
    row["Q"] = round(s * math.sqrt(max(0, 1 - c * c)), 1)
    for name in ENERGIES:
        row[name] = float(rng.randint(0, 99999)) * (-1 if name == "Wp-" else 1)
    for name, most in zip(ESTIMATES, (1500, 120, 18500, 1)):
        row[name] = round(rng.uniform(0, most), 2)
    for name in PHASES:
        row[name] = round(u / math.sqrt(3) * rng.uniform(0.9, 1.1), 2)
    row["letter"] = rng.choice("VP")
    row["mark"] = rng.choice([0, 0, 0, CORRECTED])
    row["stamped"] = 1
    return row


def random_times(rng, count, interval):
    """Gapless as a run leaves them, or with jumps as files come from elsewhere."""
    if rng.random() < 0.5:
        return [whole(k * interval) for k in range(count)]
    times, t = [], rng.choice([0, 0, 0, 3])
    for _ in range(count):
        times.append(t)
        t += rng.choice([1, 2, 3, 5, 10, 40]) if rng.random() < 0.93 else rng.choice([0, -4])
        t = max(t, 0)
    return times


def random_interval(rng):
    kind = rng.random()
    if kind < 0.5:
        return float(rng.choice([1, 2, 3, 5, 7, 10, 15, 30, 60]))
    if kind < 0.8:
        return rng.choice([2.5, 1.5, 3.5, 1.2, 1.1, 7.3, 12.25, 4.75])
    return round(rng.uniform(1, 20), 2) + rng.choice([0.001, 0.002, 0.004, 0.006, 0.007, 0.009])


def random_value(rng, recording, column, scale):
    u, i, f = scale
    if column == "Q":
        return float(rng.choice([-1, -0.5, 0, 1, 300]))
    if column == "P":
        return round(u * i * rng.uniform(-1, 1), 1) if rng.random() < 0.8 else float(rng.choice([0, 500, -500]))
    if rng.random() < 0.15:
        return {"U": 100.0, "I": 5.0}.get(column, 0.0) if rng.random() < 0.6 else 0.0
    full = {"I": i, "f": f}.get(column, u)
    return round(full * rng.uniform(0.1, 1.3), 3)


def random_operation(rng, recording, methods, scale):
    """One operation as its words."""
    sets = len(recording.rows)
    if sets == 0:
        return ["first"]
    first = rng.randint(1, sets) if rng.random() < 0.95 else rng.choice([0, -1, sets + 1, sets + 5])
    count = rng.randint(1, 4) if rng.random() < 0.9 else rng.choice([0, sets, sets + 1])
    kinds = ["dup", "del", "mid", "mid", "every", "every", "edit", "edit", "number", "method"]
    kind = rng.choice(kinds + ["energies"] if recording.has("Wp") else kinds)
    if kind in ("dup", "del", "mid"):
        return [kind, first, count]
    if kind == "every":
        return [kind, random_interval(rng)]
    if kind == "method":
        others = [m for m in methods if m != recording.method]
        return [kind, others[0]] if others else ["number"]
    if kind == "edit":
        column = rng.choice(EDITABLE[recording.configuration])
        return [kind, rng.randint(1, sets), column, random_value(rng, recording, column, scale)]
    return [kind]


def perform(recording, words):
    operation = {"del": recording.delete, "method": recording.change_method}.get(words[0])
    (operation or getattr(recording, words[0]))(*words[1:])


def text(value):
    return value if isinstance(value, str) else str(value) if isinstance(value, int) else "%.12g" % value


def row_line(kind, recording, row):
    numbers = [row[name] + 0.0 if row[name] != "?" else "?" for name in FIELDS[recording.configuration]]
    letter = [row["letter"]] if recording.configuration == 2 else []
    return " ".join(map(text, [kind, row["t"], row["mark"], row["stamped"]] + numbers + letter))


def random_case(rng):
    """The lines of one recording with its operations."""
    configuration = rng.choice([0, 1, 2, 2, 6])
    scale, entered, machine, methods = (400, 30, 50), None, None, [0, 1]
    if configuration == 2:
        entered, machine, methods, scale = random_machine(rng)
    recording = Recording(configuration, random_interval(rng), rng.choice(methods), machine)
    count = rng.randint(1, 12)
    for t in random_times(rng, count, recording.interval):
        row = random_row(rng, recording, scale)
        row["t"] = t
        recording.rows.append(row)
    lines = [" ".join(map(text, ["case", configuration, recording.interval, recording.method]))]
    if entered:
        lines.append(" ".join(["machine"] + entered))
    lines += [row_line("row", recording, row) for row in recording.rows]
    for _ in range(rng.choice([1, 1, 2, 3, 4, 5, 6, 8])):
        words = random_operation(rng, recording, methods, scale)
        perform(recording, words)
        if len(recording.rows) > 24:
            raise TooNarrow  # for the size of the table
        lines.append(" ".join(map(text, words)))
    lines.append(" ".join(map(text, ["then", recording.interval, recording.method])))
    lines += [row_line("set", recording, row) for row in recording.rows]
    return lines + ["end"]


def main():
    arguments = [int(a) for a in sys.argv[1:]] + [None] * 2
    count, rng = arguments[0] or 150, random.Random(arguments[1] or 20260314)
    while count > 0:
        try:
            lines = random_case(rng)
        except TooNarrow:
            continue
        print("\n".join(lines))
        count -= 1


if __name__ == "__main__":
    main()
