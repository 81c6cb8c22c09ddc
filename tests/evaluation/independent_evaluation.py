#!/usr/bin/env python3
"""A second calculation of the evaluation, to compare the program's with.

It shares nothing with the program: lists instead of a database, the oldest set of the window read again, no shortcut.
All numbers are doubles and all sums are formed in one fixed order, so that the two agree to the last bit.

  independent_evaluation.py random [count [seed]]         table of random recordings; only their seeds stand in it
  independent_evaluation.py household FILE.csv.gz         expected results of the household's recording
  independent_evaluation.py project FILE.MDB key=value... evaluates the sets that a project file holds
"""

import csv
import gzip
import math
import sqlite3
import sys

QUANTITIES = 50
CHANNELS = 13
LOSS = 12
U, I, F, P, S, Q, COSPHI, N, M, PMECH, ETA, PHI = range(12)
WP, WQ, WP_PLUS, WP_MINUS = 12, 13, 14, 15

# Columns of the value tables, by the number of their quantity.
COLUMNS = (
    ["U sum", "I sum", "f sum", "P sum", "S sum", "Q sum", "cosphi sum", "n", "M", "Pmech", "eta", "phi sum"]
    + ["Wp", "Wq", "Wp+", "Wp-"]
    + [f"{name} {phase}" for name in ("U", "I", "P", "Q", "S", "phi", "cosphi") for phase in (1, 2, 3)]
    + ["I N"]
    + [f"{name} {kind}" for kind in ("abs", "rel") for name in ("Wp", "Wp+", "Wp-", "Wq", "Wq+", "Wq-")]
)

SUMS = [U, I, F, P, PHI, Q, S, COSPHI]
MACHINE = [N, M, PMECH, ETA]
PHASES = list(range(16, 37))
NEUTRAL = [37]
REGISTERS = list(range(38, 50))
INTEGRATED = [WP, WP_PLUS, WP_MINUS, WQ]

# What each net configuration records.
STORED = {
    0: SUMS + INTEGRATED,
    1: SUMS + INTEGRATED,
    2: SUMS + INTEGRATED + MACHINE,
    3: SUMS + NEUTRAL + REGISTERS,
    4: SUMS + NEUTRAL + REGISTERS + PHASES,
    5: SUMS + NEUTRAL + REGISTERS + PHASES + MACHINE,
    6: [U, F, 16, 17, 18],
}


class Fault(Exception):
    """A number that is none."""


def divide(a, b):
    if b == 0:
        raise Fault
    return a / b


class Options:
    """Everything beside the sets that the results depend on."""

    def __init__(self):
        self.configuration = 0
        self.dt = 1.0
        self.window_size = 900.0
        self.window_factor = 3.0
        self.window_selection = 0
        self.prices = [0.15, 0.07, 0.03]
        self.cycles = 10
        self.is_machine_valid = False
        self.tth = 0.0
        # Rated data: None is not known.
        self.rated = {name: None for name in ("U", "I", "f", "n", "M", "Pmech", "Mkipp_Mn")}
        self.pel = 0.0
        self.kipp = 0.0

    def has_machine(self):
        return self.configuration in (2, 5)


# ---- single steps ---------------------------------------------------------------------------------------------------

def loss_power(p, pmech):
    if p > 0 and pmech < 0:
        return abs(pmech) + p
    return abs(abs(p) - abs(pmech))


def energy_ratio(a, b, c):
    if a == 0 or b == 0:
        return 0.0
    if a > 0:
        return a / b if b > c else 0.0
    return b / a if b < 0 else 0.0


def resolve_time_window(options):
    """Window length in seconds, and the selection that stays in force."""
    is_usable = options.tth != 0 and options.is_machine_valid
    selection = options.window_selection
    if selection == 1 and not is_usable:
        selection = 0
    if selection == 0:
        return options.window_size, selection
    return float(math.floor(options.tth * options.window_factor)), selection


def update_extrem(value, n, smallest, largest, index):
    if n == 1:
        smallest[index] = [value, n]
        largest[index] = [value, n]
        return
    if value < smallest[index][0]:
        smallest[index] = [value, n]
    if value > largest[index][0]:
        largest[index] = [value, n]


# ---- ratings --------------------------------------------------------------------------------------------------------

GIGA = 1000000000.0
ENERGY_LIMIT = 360000000000.0


def plausible_range(quantity):
    if quantity == U or 16 <= quantity <= 18:
        return 0.0, 100000.0
    if quantity == I or 19 <= quantity <= 21 or quantity == 37:
        return 0.0, 100000.0
    if quantity == F:
        return 0.0, 1000.0
    if quantity in (P, S, Q, PMECH) or 22 <= quantity <= 30:
        return -GIGA, GIGA
    if quantity == PHI or 31 <= quantity <= 33:
        return -180.0, 180.0
    if quantity == COSPHI or 34 <= quantity <= 36:
        return -1.0, 1.0
    if quantity == N:
        return 0.0, 6000.0
    if quantity == M:
        return -10000.0, 10000.0
    if quantity == ETA:
        return 0.0, 0.99999999
    return -ENERGY_LIMIT, ENERGY_LIMIT


def rate_against_rated_data(value, quantity, options):
    rated = options.rated
    if quantity == U or 16 <= quantity <= 18:
        if rated["U"] is None:
            return 0
        if 0.95 * rated["U"] <= value <= 1.05 * rated["U"]:
            return 1
        return 2 if 0.9 * rated["U"] <= value <= 1.1 * rated["U"] else 3
    if quantity == F:
        if rated["f"] is None:
            return 0
        if 0.98 * rated["f"] <= value <= 1.02 * rated["f"]:
            return 1
        return 2 if 0.95 * rated["f"] <= value <= 1.05 * rated["f"] else 3
    if quantity == P or 22 <= quantity <= 24:
        if rated["Pmech"] is None:
            return 0
        limit = abs(options.pel)
        if -limit <= value <= limit:
            return 1
        return 2 if -(1.5 * limit) <= value <= 1.5 * limit else 3
    if quantity in (N, PMECH, ETA):
        return 3 if rated["Pmech"] is None else 0
    if quantity == M:
        return 2 if rated["Pmech"] is None else 0
    return 0


def rate_value(value, quantity, options):
    rating = rate_against_rated_data(value, quantity, options) if options.has_machine() else 0
    low, high = plausible_range(quantity)
    if value < low or value > high:
        rating = 3
    return rating


def rate_row(row, options):
    worst = 0
    for quantity in (U, F, M, P, N, PMECH, ETA):
        worst = max(worst, rate_value(row[quantity], quantity, options))
    return worst


def rate_stall(share):
    return 1 if share <= 0.8 else 2 if share <= 1.0 else 3


def rate_share(share):
    return 1 if share <= 0.85 else 2 if share <= 1.0 else 3


# ---- the pass -------------------------------------------------------------------------------------------------------

class Evaluation:
    """`recording` is a list of (row of 50 values, mark of correction); set n stands at n - 1."""

    def __init__(self, recording, options):
        self.recording = recording
        self.options = options
        self.extrem_min = [[0.0, 0] for _ in range(QUANTITIES)]
        self.extrem_max = [[0.0, 0] for _ in range(QUANTITIES)]
        self.rms_min = [[0.0, 0] for _ in range(CHANNELS)]
        self.rms_max = [[0.0, 0] for _ in range(CHANNELS)]
        self.avg_min = [[0.0, 0] for _ in range(CHANNELS)]
        self.avg_max = [[0.0, 0] for _ in range(CHANNELS)]
        self.window_sum_sq = [0.0] * CHANNELS
        self.window_sum = [0.0] * CHANNELS
        self.window_rows = 0.0
        self.corrected_rows = 0
        self.energy = [[0.0, 0.0, 0.0] for _ in range(16)]
        self.asm = [{"value": 0.0, "ratio": None, "set": 0.0, "rating": None} for _ in range(11)]
        self.classes = [0, 0, 0, 0]
        self.loss = 0.0
        self.run()
        self.require_finite()

    def load(self, n):
        values, mark = self.recording[n - 1]
        self.row = values
        self.mark = mark

    def run(self):
        options = self.options
        self.window, self.selection = resolve_time_window(options)
        count = len(self.recording)
        for n in range(1, count + 1):
            self.load(n)
            if self.mark:
                self.corrected_rows += 1
            for quantity in range(QUANTITIES):
                update_extrem(self.row[quantity], n, self.extrem_min, self.extrem_max, quantity)
            if n > 1:
                self.accumulate_energy()
            if options.has_machine():
                self.accumulate_utilisation()
                self.loss = loss_power(self.row[P], self.row[PMECH])
            self.window_accumulate(True)
            self.window_rows += 1
            width = math.floor(divide(self.window, options.dt)) + 1
            if n > width:
                self.window_rows -= 1
                self.load(n - int(self.window_rows))
                self.loss = loss_power(self.row[P], self.row[PMECH])
                self.window_accumulate(False)
                for c in range(CHANNELS):
                    update_extrem(self.window_sum_sq[c], n, self.rms_min, self.rms_max, c)
                    update_extrem(self.window_sum[c], n, self.avg_min, self.avg_max, c)
            else:
                for c in range(CHANNELS):
                    self.rms_min[c] = [self.window_sum_sq[c], n]
                    self.rms_max[c] = [self.window_sum_sq[c], n]
                    self.avg_min[c] = [self.window_sum[c], n]
                    self.avg_max[c] = [self.window_sum[c], n]
        self.finish_window()
        self.finish_energy()
        if options.has_machine():
            self.finish_utilisation(count)

    def window_accumulate(self, is_added):
        sign = 1.0 if is_added else -1.0
        channels = [U, I, F, P, S, Q, COSPHI]
        if self.options.has_machine():
            channels += [N, M, PMECH, ETA]
        channels += [PHI]
        for c in channels:
            x = self.row[c]
            self.window_sum_sq[c] += sign * x * x
            self.window_sum[c] += sign * x
        if self.options.has_machine():
            self.window_sum[LOSS] += sign * self.loss

    def accumulate_energy(self):
        row, energy = self.row, self.energy
        four = [(0, row[P]), (2, row[I]), (3, row[S]), (4, row[PMECH])]
        for index, x in four:
            if row[P] > 0:
                energy[index][0] += x
            elif row[P] < 0:
                energy[index][1] += x
        for index, x in four:
            energy[index][2] += x
        if row[Q] > 0:
            energy[1][0] += row[Q]
        elif row[Q] < 0:
            energy[1][1] += row[Q]
        energy[1][2] += row[Q]

    def accumulate_utilisation(self):
        row, asm = self.row, self.asm
        asm[6]["value"] += row[I] * row[I]
        asm[7]["value"] += row[M] * row[M]
        asm[8]["value"] += row[PMECH] * row[PMECH]
        asm[10]["value"] += loss_power(row[P], row[PMECH])
        self.classes[rate_row(row, self.options)] += 1

    def finish_window(self):
        rows = self.window_rows
        for c in range(CHANNELS):
            for entry in (self.rms_min[c], self.rms_max[c]):
                entry[0] = math.sqrt(abs(entry[0]) / rows) if rows > 0 else 0.0
        for c in range(CHANNELS):
            for entry in (self.avg_min[c], self.avg_max[c]):
                entry[0] = 0.0 if rows == 0 else entry[0] / rows

    def finish_energy(self):
        energy, options = self.energy, self.options
        prices, cycles = options.prices, float(options.cycles)
        for index in range(5):
            for field in range(3):
                energy[index][field] *= options.dt
        if options.is_machine_valid:
            for field in range(3):
                energy[5][field] = energy_ratio(energy[4][field], energy[0][field], 0.0)
        energy[6][0] = abs(energy[0][0] / 3600000 * prices[0])
        energy[6][1] = abs(energy[0][1] / 3600000 * prices[1])
        energy[6][2] = energy[6][0] - energy[6][1]
        energy[7][0] = abs(energy[1][0] / 3600000 * prices[2])
        for index in range(8):
            for field in range(3):
                if index == 5 and options.is_machine_valid:
                    energy[13][field] = energy_ratio(energy[12][field], energy[8][field], 0.0)
                else:
                    energy[8 + index][field] = cycles * energy[index][field]

    @staticmethod
    def larger_magnitude(smallest, largest):
        chosen = largest if abs(smallest[0]) <= abs(largest[0]) else smallest
        return abs(chosen[0]), float(chosen[1])

    def finish_utilisation(self, count):
        asm, rated, options = self.asm, self.options.rated, self.options
        r = float(count)
        if r == 0:
            r = 1e-10

        def put(index, value, n):
            asm[index]["value"] = value
            asm[index]["set"] = n

        def power_of_torque(index, source):
            if rated["n"] is None:
                put(index, 0.0, 0.0)
            else:
                put(index, asm[source]["value"] * rated["n"] * math.pi / 30, asm[source]["set"])

        put(0, *self.larger_magnitude(self.extrem_min[M], self.extrem_max[M]))
        put(1, *self.larger_magnitude(self.rms_min[I], self.rms_max[I]))
        put(2, *self.larger_magnitude(self.rms_min[M], self.rms_max[M]))
        put(3, *self.larger_magnitude(self.rms_min[PMECH], self.rms_max[PMECH]))
        power_of_torque(4, 2)
        put(5, *self.larger_magnitude(self.avg_min[LOSS], self.avg_max[LOSS]))
        for index in (6, 7, 8):
            put(index, math.sqrt(abs(asm[index]["value"]) / r), r)
        power_of_torque(9, 7)
        put(10, asm[10]["value"] / r, r)

        for entry in asm:
            entry["rating"] = 0
        if rated["Pmech"] is None:
            return
        if rated["Mkipp_Mn"] is not None:
            asm[0]["ratio"] = abs(divide(asm[0]["value"], options.kipp))
            asm[0]["rating"] = rate_stall(asm[0]["ratio"])
        pth = loss_power(options.pel, rated["Pmech"])
        against = [None, rated["I"], rated["M"], rated["Pmech"], rated["Pmech"], pth,
                   rated["I"], rated["M"], rated["Pmech"], rated["Pmech"], pth]
        for index in range(1, 11):
            if against[index] is not None:
                asm[index]["ratio"] = abs(divide(asm[index]["value"], against[index]))
                asm[index]["rating"] = rate_share(asm[index]["ratio"])

    def require_finite(self):
        numbers = [self.window_rows] + self.window_sum_sq + self.window_sum
        for table in (self.extrem_min, self.extrem_max, self.rms_min, self.rms_max, self.avg_min, self.avg_max):
            numbers += [entry[0] for entry in table]
        for entry in self.energy:
            numbers += entry
        for entry in self.asm:
            numbers += [entry["value"], 0.0 if entry["ratio"] is None else entry["ratio"]]
        if not all(math.isfinite(x) for x in numbers):
            raise Fault


# ---- the table ------------------------------------------------------------------------------------------------------

def word(x):
    if x is None:
        return "-"
    if x == int(x) and abs(x) < 1000000 and not (x == 0 and math.copysign(1, x) < 0):
        return str(int(x))
    return float(x).hex()


def pairs(table):
    """value:set, with `*count` behind one that stands several times in a row."""
    words = []
    for value, n in table:
        text = f"{word(value)}:{n}"
        if words and words[-1][0] == text:
            words[-1][1] += 1
        else:
            words.append([text, 1])
    return " ".join(text if count == 1 else f"{text}*{count}" for text, count in words)


def print_results(evaluation, out):
    print("min", pairs(evaluation.extrem_min), file=out)
    print("max", pairs(evaluation.extrem_max), file=out)
    print("rmsmin", pairs(evaluation.rms_min), file=out)
    print("rmsmax", pairs(evaluation.rms_max), file=out)
    print("avgmin", pairs(evaluation.avg_min), file=out)
    print("avgmax", pairs(evaluation.avg_max), file=out)
    print("window", word(evaluation.window), evaluation.selection, word(evaluation.window_rows),
          evaluation.corrected_rows, file=out)
    print("energy", " ".join(word(x) for entry in evaluation.energy for x in entry), file=out)
    if evaluation.options.has_machine():
        print("asm", " ".join(f"{word(e['value'])}:{word(e['ratio'])}:{word(e['set'])}:{e['rating']}"
                              for e in evaluation.asm), file=out)
    print("classes", " ".join(str(x) for x in evaluation.classes), file=out)


def print_case(seed, profile, count, options, out):
    rated = options.rated
    print("case", seed, profile, count, options.configuration, word(options.dt), word(options.window_size),
          word(options.window_factor), options.window_selection, " ".join(word(x) for x in options.prices),
          options.cycles, int(options.is_machine_valid), word(options.tth),
          " ".join(word(rated[name]) for name in ("U", "I", "f", "n", "M", "Pmech", "Mkipp_Mn")),
          word(options.pel), word(options.kipp), file=out)


# ---- random recordings ----------------------------------------------------------------------------------------------

MASK = (1 << 64) - 1


class SplitMix:
    """Integers alone, so that it gives the same everywhere."""

    def __init__(self, seed):
        self.state = seed & MASK

    def next(self):
        self.state = (self.state + 0x9E3779B97F4A7C15) & MASK
        z = self.state
        z = ((z ^ (z >> 30)) * 0xBF58476D1CE4E5B9) & MASK
        z = ((z ^ (z >> 27)) * 0x94D049BB133111EB) & MASK
        return z ^ (z >> 31)

    def below(self, bound):
        return self.next() % bound

    def pick(self, choices):
        return choices[self.below(len(choices))]


MOTOR, MIXED, COARSE, WILD, GENERATOR, CONSTANT = range(6)
PROFILES = 6
UNIT = 1 << 40

# Of each kind of quantity: its full value, and the range as a motor or with both signs in thousandths of it.
SHAPES = {
    "U": (400.0, (880, 1120), (880, 1120)),
    "I": (33.0, (0, 1300), (0, 1300)),
    "f": (50.0, (940, 1060), (940, 1060)),
    "P": (20000.0, (-50, 1700), (-1700, 1700)),
    "S": (22000.0, (0, 1500), (0, 1500)),
    "Q": (10000.0, (0, 1200), (-1200, 1200)),
    "cosphi": (1.0, (0, 1000), (-1000, 1000)),
    "n": (1500.0, (900, 1100), (900, 1100)),
    "M": (120.0, (-20, 1500), (-1500, 1500)),
    "Pmech": (18500.0, (-20, 1500), (-1500, 1500)),
    "eta": (1.0, (0, 1010), (0, 1010)),
    "phi": (180.0, (0, 1000), (-1000, 1000)),
    "W": (1e7, (0, 4000), (-4000, 4000)),
}


def shape(quantity):
    name = COLUMNS[quantity].split(" ")[0]
    return SHAPES["W" if name.startswith("W") else name]


def draw(generator, quantity, profile):
    x = generator.next()
    full, as_motor, with_signs = shape(quantity)
    if x & 31 == 0:
        return 0.0
    if profile == COARSE:
        return float(x // 32 % 5 - 2) * (full * 0.25)
    low, high = as_motor if profile in (MOTOR, CONSTANT) else with_signs
    number = low * UNIT + (x >> 9) % ((high - low) * UNIT)
    value = float(number) * (full / (1000.0 * UNIT))
    if profile == GENERATOR and quantity in (P, M, PMECH) and value > 0:
        value = -value
    if profile == WILD and (x >> 5) & 15 == 0:
        value *= 16777216.0
    return value


def make_recording(seed, profile, count, configuration):
    """A quantity that the configuration doesn't record counts as 0."""
    generator = SplitMix(seed)
    stored = set(STORED[configuration])
    recording = []
    for n in range(1, count + 1):
        row = [draw(generator, quantity, profile) for quantity in range(QUANTITIES)]
        mark = generator.below(8) == 0
        if profile == CONSTANT and n > 1:
            row = recording[0][0]
        recording.append(([row[q] if q in stored else 0.0 for q in range(QUANTITIES)], mark))
    return recording


MOTOR_DATA = {"U": 400.0, "I": 32.85, "f": 50.0, "n": 1462.5, "M": 120.79517, "Pmech": 18500.0, "Mkipp_Mn": 2.8}
GENERATOR_DATA = {"U": 400.0, "I": 28.0, "f": 50.0, "n": 1530.0, "M": -115.466, "Pmech": -18500.0, "Mkipp_Mn": 3.1}
NULLS = [[], ["U"], ["I"], ["f"], ["n"], ["M"], ["Mkipp_Mn"], ["Pmech"], ["U", "f"], ["I", "M", "n"], []]


def random_machine(generator, options, nulls):
    is_generator = generator.below(3) == 0
    data = dict(GENERATOR_DATA if is_generator else MOTOR_DATA)
    scale = generator.pick([0.5, 1.0, 1.0, 1.0, 1.7])  # so that every verdict occurs
    for name in ("I", "M", "Pmech"):
        data[name] *= scale
    options.pel = data["Pmech"] * (0.87 if is_generator else 1.11) * generator.pick([1.0, 1.0, -1.0])
    options.kipp = data["M"] * data["Mkipp_Mn"] * generator.pick([0.3, 0.45, 1.0])
    for name in nulls:
        data[name] = None
    options.rated = data
    options.tth = generator.pick([0.0, 95.3, 1234.5, 20.0])
    options.is_machine_valid = generator.below(3) != 0


def random_options(generator, configuration, nulls):
    options = Options()
    options.configuration = configuration
    options.dt = generator.pick([1.0, 0.5, 7.0, 60.0])
    width = generator.pick([0.3, 1.0, 2.4, 5.0, 17.9, 40.0])
    options.window_size = options.dt * width
    options.window_factor = generator.pick([0.5, 1.0, 3.0, 0.77])
    options.window_selection = generator.below(2)
    options.prices = generator.pick([[0.15, 0.07, 0.03], [-0.2, 0.09, -0.01], [0.0, 0.0, 0.0], [0.3127, -0.11, 0.05]])
    options.cycles = generator.pick([10, 1, 0, -1, 365, 2000000000])
    random_machine(generator, options, nulls)
    return options


def random_case(number, seed, longest):
    generator = SplitMix(seed * 1000003 + number)
    configuration, turn = number % 7, number // 7
    options = random_options(generator, configuration, NULLS[(turn + configuration) % len(NULLS)])
    kind = turn % 8
    window, _ = resolve_time_window(options)
    width = math.floor(window / options.dt) + 1
    if 3 <= kind <= 5 and not 3 <= width <= 60:
        options.window_selection, width = 0, 6
        options.window_size = options.dt * 5.5
    few = [0, 1, 2, width - 1, width, width + 1]
    count = few[kind] if kind < 6 else generator.pick([30, 100, longest] if kind == 6 else [7, 61, 300])
    if kind == 6:
        count += generator.below(50)
    return generator.next(), generator.below(PROFILES), count, options


def print_random_table(count, seed, longest, out):
    for number in range(count):
        recording_seed, profile, sets, options = random_case(number, seed, longest)
        recording = make_recording(recording_seed, profile, sets, options.configuration)
        print_case(recording_seed, profile, sets, options, out)
        try:
            print_results(Evaluation(recording, options), out)
        except Fault:
            print("fault", file=out)


# ---- recordings of a file -------------------------------------------------------------------------------------------

def household_recording(path, dt):
    """Rows as a run stores them: apparent power, factor and angle from voltage, current and power of one phase, and the
    energies by the rectangle rule."""
    recording = []
    above_apparent = 0
    wp = wp_plus = wp_minus = wq = 0.0
    with gzip.open(path, "rt", newline="") as file:
        for n, line in enumerate(csv.DictReader(file), start=1):
            row = [0.0] * QUANTITIES
            row[U], row[I], row[F] = float(line["U_V"]), float(line["I_A"]), 50.0
            row[P], row[Q] = float(line["P_W"]), float(line["Q_var"])
            row[S] = row[U] * row[I]
            factor = abs(row[P] / row[S]) if row[S] != 0 else 0.0
            above_apparent += abs(row[P]) > row[S]
            angle = math.acos(factor) * (180 / math.pi) if row[S] != 0 and factor < 1 else 0.0
            row[PHI] = 180 - angle if row[P] < 0 else angle
            row[COSPHI] = -factor if row[P] < 0 else factor
            step_p = 0.0 if n == 1 else row[P] * dt
            step_q = 0.0 if n == 1 else row[Q] * dt
            wp += step_p
            wp_plus += step_p if step_p >= 0 else 0.0
            wp_minus += step_p if step_p < 0 else 0.0
            wq += step_q
            row[WP], row[WP_PLUS], row[WP_MINUS], row[WQ] = wp, wp_plus, wp_minus, wq
            recording.append((row, False))
    return recording, above_apparent


def print_household(path, out):
    options = Options()
    options.dt = 60.0
    recording, above_apparent = household_recording(path, options.dt)
    print_case(0, 0, len(recording), options, out)
    print("above", above_apparent, file=out)
    print_results(Evaluation(recording, options), out)


def project_recording(path, configuration):
    db = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    names = [COLUMNS[q] for q in STORED[configuration]]
    listed = ", ".join(f"[{name}]" for name in names)
    recording = []
    for values in db.execute(f"SELECT SampledValues.[Edit], {listed} FROM SampledValues INNER JOIN ComputedValues ON "
                             "SampledValues.[Set] = ComputedValues.[Set] ORDER BY SampledValues.[Set]"):
        row = [0.0] * QUANTITIES
        for quantity, value in zip(STORED[configuration], values[1:]):
            row[quantity] = 0.0 if value is None else float(value)
        recording.append((row, bool(values[0])))
    db.close()
    return recording


def print_project(path, assignments, out):
    options = Options()
    numbers = {"dt": "dt", "window": "window_size", "factor": "window_factor", "tth": "tth", "pel": "pel",
               "kipp": "kipp"}
    whole = {"configuration": "configuration", "selection": "window_selection", "cycles": "cycles"}
    for assignment in assignments:
        key, value = assignment.split("=")
        if key in numbers:
            setattr(options, numbers[key], float.fromhex(value) if "0x" in value else float(value))
        elif key in whole:
            setattr(options, whole[key], int(value))
        elif key == "valid":
            options.is_machine_valid = value == "1"
        elif key == "prices":
            options.prices = [float(x) for x in value.split(",")]
        else:
            options.rated[key] = float.fromhex(value) if "0x" in value else float(value)
    recording = project_recording(path, options.configuration)
    print_case(0, 0, len(recording), options, out)
    print_results(Evaluation(recording, options), out)


def main(arguments):
    if arguments[:1] == ["random"]:
        count = int(arguments[1]) if len(arguments) > 1 else 126
        seed = int(arguments[2]) if len(arguments) > 2 else 1
        print_random_table(count, seed, 3000 if count < 200 else 1500, sys.stdout)
    elif arguments[:1] == ["household"] and len(arguments) == 2:
        print_household(arguments[1], sys.stdout)
    elif arguments[:1] == ["project"] and len(arguments) > 1:
        print_project(arguments[1], arguments[2:], sys.stdout)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
