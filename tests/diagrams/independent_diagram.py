#!/usr/bin/env python3
"""A second calculation of a diagram's grid and full scales, to compare the program's with.

Its steps come from tables of decimal numbers and its lines from counting, not from the program's formulas.

  independent_diagram.py views [count [seed]]    views with their grid
  independent_diagram.py scales [count [seed]]   extremes with their full scale

Ends of views and scales are written so that reading them gives the same double.
"""

import random
import sys
from decimal import Decimal, ROUND_FLOOR

FRACTION_STEPS = [("1", "0.2"), ("0.5", "0.1"), ("0.25", "0.05"), ("0.2", "0.04"), ("0.1", "0.02"), ("0.05", "0.01"),
                  ("0.01", "0.005")]


def set_step(span):
    """Quarter, half or whole of the greatest power of ten within the span."""
    power = Decimal(1).scaleb(Decimal(span).adjusted())
    ratio = Decimal(span) / power
    if ratio < Decimal("2.5"):
        return power / 4
    return power / 2 if ratio < 5 else power


def fraction_step(span):
    for above, step in FRACTION_STEPS:
        if span > float(above):
            return Decimal(step)
    return Decimal("0.001")


def lines(low, high, step):
    """All multiples of the step between the ends, in exact numbers."""
    number = (Decimal(low) / step).to_integral_value(ROUND_FLOOR)
    found = []
    while number * step <= Decimal(high):
        if number * step >= Decimal(low):
            found.append(number * step)
        number += 1
    return found


def is_at_risk(low, high, step):
    """Whether an end lies so close beside a line that rounding decides."""
    for end in (low, high):
        near = (Decimal(end) / step).to_integral_value()
        off = abs(Decimal(end) / step - near)
        if Decimal(0) < off < Decimal("1e-9"):
            return True
    return False


def a_view(source):
    count = source.choice([2, 10, 100, 5000, 1_000_000])
    if source.random() < 0.2:
        x1, x2 = 1.0, float(count)
    else:
        x1, x2 = sorted(source.uniform(1, count) for _ in range(2))
        if source.random() < 0.5:
            x2 = min(x2, x1 + source.choice([0.01, 0.3, 3, 40]) * source.random() + 0.001)
    kind = source.random()
    if kind < 0.2:
        y1, y2 = -1.0, 1.0
    elif kind < 0.4:
        y1, y2 = 0.0, 1.0
    else:
        y1, y2 = sorted(source.uniform(-1, 1) for _ in range(2))
        if source.random() < 0.7:
            y2 = min(1.0, y1 + source.choice([0.005, 0.03, 0.08, 0.15, 0.22, 0.4, 0.9]) * source.random() + 0.001)
    return x1, x2, y1, y2


def views(count, source):
    print("# x1 x2 y1 y2 | lines over the sets: step number first last whole | labels: number last | "
          "lines over the fractions: step number first last zero")
    while count > 0:
        x1, x2, y1, y2 = a_view(source)
        of_sets = set_step(x2 - x1)
        of_fractions = fraction_step(y2 - y1)
        if is_at_risk(x1, x2, of_sets) or is_at_risk(y1, y2, of_fractions):
            continue
        sets = lines(x1, x2, of_sets)
        fractions = lines(y1, y2, of_fractions)
        if not sets or not fractions:
            continue
        labels = sets[::2] if len(sets) > 5 else sets
        whole = sum(1 for line in sets if line == line.to_integral_value())
        zero = sum(1 for line in fractions if line == 0)
        print(repr(x1), repr(x2), repr(y1), repr(y2), of_sets, len(sets), sets[0], sets[-1], whole, len(labels),
              labels[-1], of_fractions, len(fractions), fractions[0], fractions[-1], zero)
        count -= 1


def scale_end(minimum, maximum, divisor):
    """The first of 1, 5, 10, 50, ... in decimal numbers that reaches the value."""
    most = Decimal(repr(max(abs(minimum), maximum) / divisor))
    if most == 0:
        return Decimal(1)
    power = Decimal(1).scaleb(most.adjusted())
    for end in (power, power * 5, power * 10):
        if end >= most:
            return end
    raise AssertionError(most)


def scales(count, source):
    print("# minimum maximum divisor | full scale")
    for _ in range(count):
        size = 10 ** source.uniform(-12, 12)
        values = [round(source.uniform(-1, 1) * size, source.choice([1, 3, 12])) for _ in range(2)]
        if source.random() < 0.2:
            values = [0.0, float(f"{source.choice([1, 5])}e{source.randint(-9, 9)}")]
        if source.random() < 0.05:
            values = [0.0, 0.0]
        divisor = source.choice([1, 1, 3600])
        print(repr(min(values)), repr(max(values)), divisor, scale_end(min(values), max(values), divisor))


def main():
    what = sys.argv[1] if len(sys.argv) > 1 else ""
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 2000
    source = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 12)
    if what == "views":
        views(count, source)
    elif what == "scales":
        scales(count, source)
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
