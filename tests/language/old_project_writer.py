#!/usr/bin/env python3
"""Writes projects of the predecessor, VELDRIK, and what has to come of each when it is converted.

Written from the format alone; nothing here is taken from the program. The values of the sets, their energies and the
header are calculated by the formulas below. `tests/language/data/old_projects.json` is made by

    python3 tests/language/old_project_writer.py > tests/language/data/old_projects.json

Each entry holds a name, the bytes of the file in hexadecimal digits, and either the outcome "format" or "fault" of a
file that can't be converted, or the keys and the sets of the project.
"""
import json
import math
import struct
import sys

ROOT3 = math.sqrt(3.0)
DESCRIPTION = "Hersteller:\nStandort:\nEinbaulage:\nweitere Angaben:"


def single(x):
    """The number as four bytes hold it."""
    return struct.unpack("<f", struct.pack("<f", x))[0]


def padded(data, to):
    return data + b"\0" * (-len(data) % to)


def chunk(tag, data, pad, length=None):
    """Bytes of a chunk, and what it counts for in the head: its data and eight bytes."""
    size = len(data) if length is None else length
    return tag.encode("ascii") + struct.pack("<i", size) + padded(data, pad), size + 8


def text(tag, value):
    return chunk(tag, value if isinstance(value, bytes) else value.encode("cp1252"), 2)


def double(tag, value):
    return chunk(tag, struct.pack("<d", value), 1)


def long(tag, value):
    return chunk(tag, struct.pack("<I", value & 0xFFFFFFFF), 1)


def short(tag, value):
    return chunk(tag, struct.pack("<h", value), 1)


def other(tag, data):
    return chunk(tag, data, 4)


def version(value=b"FV-2"):
    return chunk("$VER", value, 2)


def record(s):
    return struct.pack("<4f", *s[:4]) + (struct.pack("<f", s[4]) if len(s) == 6 else b"") + struct.pack("<f", s[-1])


def body(sets, length=None, rest=b""):
    """Sets are (U, I, f, P, t), or (U, I, f, P, phi, t) where a chunk BODX follows."""
    data = b"".join(record(s) for s in sets) + rest
    return chunk("BODY", data, 4, 20 * len(sets) + len(rest) if length is None else length)


def marks(values):
    return chunk("BODX", bytes(values), 4)


def file(chunks, size=None, head=b"FORMKVLS", behind=b""):
    count = sum(c[1] for c in chunks) if size is None else size
    return head + struct.pack("<i", count) + b"".join(c[0] for c in chunks) + behind


def half_even(x):
    whole = math.floor(x)
    rest = x - whole
    if rest > 0.5 or (rest == 0.5 and whole % 2 == 1):
        whole += 1
    return int(whole)


def rows(sets, net, edits=()):
    """The sets as the project has them."""
    result = []
    last = wp = plus = minus = wq = 0.0
    k = ROOT3 if net == 1 else 1.0
    for number, s in enumerate(sets, 1):
        u, i, f, p = (single(x) for x in s[:4])
        t = half_even(single(s[-1]))
        phi_given = single(s[4]) if len(s) == 6 else 0.0  # an angle that is derived is never below 0
        apparent = u * i * k
        cos = 0.0 if apparent == 0 else abs(p / apparent)
        q = 0.0 if abs(p) >= abs(apparent) else math.sqrt(apparent * apparent - p * p)
        phi = 0.0 if apparent == 0 or cos >= 1 else math.degrees(math.acos(cos))
        if p < 0:
            phi = 180.0 - phi
            cos = -cos
        if phi_given < 0:
            phi = -phi
            q = -q
        step = t - last
        last = float(t)
        if step * p >= 0:
            plus += step * p
        else:
            minus += step * p
        wp += step * p
        wq += step * q
        edit = edits[number - 1] if number <= len(edits) else 255
        result.append({"Set": number, "t": t, "Edit": edit, "stored": [u, i, f, p],
                       "formed": [phi, q, apparent, cos, wp, plus, minus, wq]})
    return result


def term(sets, interval):
    seconds = int(max(0.0, (len(sets) - 1) * interval))
    return "%02d:%02d:%02d" % (seconds // 3600, seconds // 60 % 60, seconds % 60) if sets else ""


VARIANTS = []


def add(name, data, sets=(), net=0, edits=(), interval=1.0, **keys):
    expected = {"Project Name": "Neues Projekt", "Company": "Ihre Firma", "Editor": "Ihr Name",
                "Description": DESCRIPTION, "Measurement Begin": "1899-12-30 00:00:00",
                "Measurement Term": term(sets, interval)}
    expected.update({key.replace("_", " "): value for key, value in keys.items()})
    VARIANTS.append({"name": name, "file": data.hex(), "net": net, "interval": interval, "keys": expected,
                     "sets": rows(sets, net, edits)})


def refuse(name, data, outcome="format"):
    VARIANTS.append({"name": name, "file": data.hex(), "outcome": outcome})


MOTOR = [(400.0, 12.5, 50.0, 4200.0, 0.0), (398.5, 13.25, 49.98, 5125.5, 1.0), (401.25, 11.0, 50.02, 3900.0, 2.0),
         (399.0, 9.5, 50.0, -2100.0, 3.0), (400.0, 10.0, 50.0, 0.0, 4.0)]
WITH_PHI = [(s[0], s[1], s[2], s[3], phi, s[4]) for s, phi in zip(MOTOR, (61.2, -54.0, 63.5, -120.25, 0.0))]
ARON = 1 << 14


def plain():
    add("empty file of chunks", file([]))
    add("empty, version alone", file([version()]))
    add("sets of 20 bytes", file([body(MOTOR)]), MOTOR)
    add("sets of 20 bytes, new form", file([version(), body(MOTOR)]), MOTOR)
    add("sets of 24 bytes", file([body(WITH_PHI), marks([])]), WITH_PHI)
    add("sets of 24 bytes, new form", file([version(), body(WITH_PHI), marks([0, 255, 0])]), WITH_PHI,
        edits=(0, 255, 0))
    add("24 bytes, the head counting all bytes", file([body(WITH_PHI), marks([7])],
                                                      size=len(body(WITH_PHI)[0]) + 9), WITH_PHI, edits=(7,))
    add("body of zero length", file([body([])]))
    add("body of zero length with a mark behind", file([body([]), marks([])]))
    add("one set", file([body(MOTOR[:1])]), MOTOR[:1])
    add("sets in three phases", file([long("F201", ARON), body(MOTOR)]), MOTOR, net=1)
    add("sets in three phases, new form", file([version(), long("F200", ARON), body(MOTOR)]), MOTOR, net=1)
    add("24 bytes in three phases", file([long("F207", ARON), body(WITH_PHI), marks([0] * 5)]), WITH_PHI, net=1,
        edits=(0,) * 5)
    add("all bits but that of the phases", file([long("F201", ~ARON), body(MOTOR)]), MOTOR)
    add("a machine that nothing is known of", file([version(), short("F201", -1), body(MOTOR)]), MOTOR, net=1)
    add("the same, flags behind", file([version(), short("F201", 1), long("F200", 0), body(MOTOR)]), MOTOR, net=1)
    add("a machine without sets", file([version(), short("F201", -1), long("F200", ARON)]), net=2)
    add("no machine", file([version(), short("F201", 0), long("F200", ARON), body(MOTOR)]), MOTOR, net=1)
    add("the configuration behind the sets", file([body(MOTOR), long("F201", ARON)]), MOTOR, net=1)


def headers():
    add("header, old form", file([text("F101", "Pumpe Süd"), text("F102", "14.03.1999, 15:09:26"),
                                  text("F104", "Werk"), text("F105", "Ärmel & Söhne"), text("F106", "Zeile")]),
        Project_Name="Pumpe Süd", Company="Werk", Editor="Ärmel & Söhne", Description="Zeile")
    add("header, new form", file([version(), text("F100", "Pumpe"), text("F103", "Werk"), text("F104", "Wer"),
                                  text("F105", "Was €")]),
        Project_Name="Pumpe", Company="Werk", Editor="Wer", Description="Was €")
    add("dates, old form", file([text("F102", "1.2.1999, 3:04:05"), text("F103", "14.03.1998, 15:09:26")]),
        Project_Created="1998-03-14 15:09:26")
    add("dates, new form", file([version(), text("F101", "1.2.1999,3:04:05"), text("F102", " 4.3.98 , 5:09 ")]),
        Project_Created="1998-03-04 05:09:00")
    add("a date without a time", file([text("F103", "31.12.2001")]), Project_Created="2001-12-31 00:00:00")
    add("a date of this century in two digits", file([text("F103", "29.02.04, 00:00:00")]),
        Project_Created="2004-02-29 00:00:00")
    for broken in ("gestern", "31.02.1999, 1:00:00", "1.2.1999, 25:00:00", "1/2/1999", "", "1.2", "1.2.3.4, 1:2:3"):
        add("no date: " + broken, file([text("F103", broken)]), Project_Created="2026-03-14 15:09:26")
    add("numbers below the description", file([text("F106", "Halle 3"), double("F110", 12.5), double("F111", 0.0),
                                               double("F112", 7.0)]), Description="Halle 3\n12,5\n7")
    add("numbers as texts", file([text("F106", "Halle"), text("F110", "NULL"), text("F111", "3,5"),
                                  text("F112", "12.25")]), Description="Halle\n3,5\n12,25")
    add("numbers before the description", file([double("F110", 1.5), text("F106", "Halle")]),
        Description="Halle\n1,5")
    add("negative numbers and none", file([text("F106", "H"), double("F110", -1.5), double("F111", math.nan),
                                           double("F112", math.inf)]), Description="H")
    add("begin, old form", file([text("R116", "02.01.2003, 04:05:06"), body(MOTOR)]), MOTOR,
        Measurement_Begin="2003-01-02 04:05:06")
    add("begin and term, new form", file([version(), text("R100", "2.1.2003, 4:05:06"), text("R101", "1:23:45"),
                                          body(MOTOR)]), MOTOR, Measurement_Begin="2003-01-02 04:05:06",
        Measurement_Term="1:23:45")
    add("numbers of the new form in an old file", file([other("F100", b"X"), other("R100", b"2.1.2003, 4:05:06")]))
    add("numbers of the old form in a new file", file([version(), text("F106", "xxxx"), text("R116", "xxxx")]))
    for name, value in (("blanks", b"FV-2    "), ("zero bytes", b"FV-2\0\0"), ("an odd blank", b"FV-2 ")):
        add("version with " + name, file([version(value), text("F100", "N")]), Project_Name="N")
    add("another version", file([version(b"FV-1"), text("F101", "N")]), Project_Name="N")
    add("a later version", file([version(b"FV-20"), text("F101", "N")]), Project_Name="N")
    add("version behind a chunk", file([other("XXXX", b"abc"), version(), text("F100", "N")]), Project_Name="N")
    add("odd texts", file([text("F101", "ABC"), text("F104", "D"), text("F105", "EFGHI"), body(MOTOR)]), MOTOR,
        Project_Name="ABC", Company="D", Editor="EFGHI")
    add("zero bytes behind texts", file([text("F101", b"ABC\0\0"), text("F104", b"D\0")]), Project_Name="ABC",
        Company="D")
    add("bytes of the whole code page", file([text("F101", bytes(b for b in range(32, 256) if b not in
                                                                 (0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D)))]),
        Project_Name=bytes(b for b in range(32, 256) if b not in (0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D))
        .decode("cp1252"))
    add("empty texts", file([text("F101", ""), text("F104", ""), text("F106", "")]), Project_Name="", Company="",
        Description="")


def unknown():
    for length in range(0, 8):
        add("unknown chunk of %d bytes" % length, file([other("ABCD", b"BODYBODX"[:length]), body(MOTOR)]), MOTOR)
    add("unknown fields of all pages", file([other("F%d99" % page, b"12345") for page in range(1, 9)] + [body(MOTOR)]),
        MOTOR)
    add("unknown fields, new form", file([version()] + [other("F%d77" % page, b"1") for page in range(1, 9)] +
                                         [other("R150", b"123"), other("RZ01", b"1234567"), body(MOTOR)]), MOTOR)
    add("tags that are nearly fields", file([other("F1AB", b"12345"), other("F1 1", b"1"), other("F911", b"12"),
                                             other("RZ-1", b"123"), other("\x01\x02\x03\x04", b"1"), body(MOTOR)]),
        MOTOR)
    add("bytes behind the last chunk", file([body(MOTOR)], behind=b"BODY\xff\xff\xff\xff"), MOTOR)
    add("a head that ends before the last chunk", file([body(MOTOR), text("F101", "N")], size=108), MOTOR)
    add("padding missing at the end", file([body(MOTOR), text("F101", "ABC")])[:-1], MOTOR, Project_Name="ABC")
    add("a head that counts padding", file([text("F101", "ABC"), body(MOTOR)], size=len(text("F101", "ABC")[0]) +
                                           len(body(MOTOR)[0])), MOTOR, Project_Name="ABC")


def lengths():
    add("body with a few bytes over", file([body(MOTOR, rest=b"1234567")]), MOTOR)
    add("a quarter record", file([body([], rest=b"12345")]))
    add("half a record rounds to none", file([body([], rest=b"1234567890")]))
    add("two and a half records round to two", file([body(MOTOR[:2], rest=b"1234567890")]), MOTOR[:2])
    refuse("one and a half records round to two", file([body(MOTOR[:1], rest=b"1234567890")]))
    refuse("most of a record", file([body(MOTOR[:2], rest=b"1" * 15)]))
    for name, length in (("below 0", -1), ("least", -2**31), ("huge", 2**31 - 1), ("beyond the file", 101)):
        refuse("length of the body " + name, file([body(MOTOR, length=length)], size=108))
        refuse("length of a text " + name, file([chunk("F101", b"ABCD", 2, length)], size=12))
        refuse("length of an unknown chunk " + name, file([chunk("ABCD", b"ABCD", 4, length)], size=12))
    refuse("size in the head below 0", file([body(MOTOR)], size=-1))
    refuse("size in the head beyond the file", file([body(MOTOR)], size=109))
    refuse("size in the head huge", file([body(MOTOR)], size=2**31 - 1))
    whole = file([version(), text("F100", "Name"), body(WITH_PHI), marks([1, 2, 3])])
    for at in (0, 3, 4, 7, 8, 11, 12, 15, 19, 23, 24, 30, 36, 40, 44, 100, 163, 164, 168, 172, 174):
        refuse("cut at %d of %d" % (at, len(whole)), whole[:at])
    refuse("another head", file([body(MOTOR)], head=b"FORMKVLX"))
    refuse("another form", file([body(MOTOR)], head=b"FARMKVLS"))
    refuse("small letters", file([body(MOTOR)], head=b"formkvls"))


def bodies():
    other_sets = [(230.0, 5.0, 50.0, 700.0, 0.0), (231.0, 6.0, 50.0, 900.0, 1.0)]
    add("two bodies, the last one counts", file([body(MOTOR), body(other_sets)]), other_sets)
    add("two bodies, the second one empty", file([body(MOTOR), body([])]))
    add("marks of a first body are lost with it", file([body(MOTOR), other("ABCD", b""), marks([1, 2, 3]),
                                                        other("ABCD", b""), body(other_sets)]), other_sets)
    add("marks of sets of 20 bytes", file([body(MOTOR), other("ABCD", b""), marks([0, 1, 2, 254, 255])]), MOTOR,
        edits=(0, 1, 2, 254, 255))
    add("fewer marks than sets", file([body(MOTOR), other("ABCD", b""), marks([0, 0])]), MOTOR, edits=(0, 0))
    add("more marks than sets", file([body(MOTOR), other("ABCD", b""), marks([0] * 9), text("F101", "N")]), MOTOR,
        edits=(0,) * 9, Project_Name="N")
    add("marks without sets", file([marks([0, 0, 0])]))
    add("marks before the sets", file([marks([0, 0, 0]), body(MOTOR)]), MOTOR)
    add("marks twice", file([body(MOTOR), other("ABCD", b""), marks([1] * 5), marks([2, 2])]), MOTOR,
        edits=(2, 2, 1, 1, 1))


def times():
    def at(*moments):
        return [(400.0, 10.0 + n, 50.0, 3000.0 + 100 * n, t) for n, t in enumerate(moments)]

    sets = at(0.0, 0.5, 1.0, 1.5, 2.0, 2.5)
    add("fractional times", file([body(sets)]), sets)
    sets = at(0.0, 2.5, 5.0, 7.5)
    add("an even grid of 2.5 s", file([body(sets)]), sets, interval=2.5)
    sets = at(0.0, 10.0, 20.0, 30.0)
    add("an even grid of 10 s", file([body(sets)]), sets, interval=10.0)
    sets = at(0.0, 1.1, 2.2, 3.3, 4.4)
    add("an even grid of 1.1 s, as far as singles hold it", file([body(sets)]), sets, interval=1.1)
    sets = at(5.0, 10.0, 15.0)
    add("a grid that begins later", file([body(sets)]), sets, interval=5.0)
    sets = at(0.0, 10.0, 20.0, 31.0)
    add("no even grid", file([body(sets)]), sets)
    sets = at(0.0, 0.25, 0.5)
    add("a grid below 1 s", file([body(sets)]), sets)
    sets = at(30.0, 20.0, 10.0)
    add("times that go back", file([body(sets)]), sets)
    sets = at(7.0, 7.0, 7.0)
    add("times that stand", file([body(sets)]), sets)
    sets = at(-3.5, -2.5, -1.5)
    add("times below 0", file([body(sets)]), sets)


def values():
    sets = [(0.0, 5.0, 50.0, 100.0, 0.0), (400.0, 0.0, 50.0, 0.0, 1.0), (400.0, 1.0, 50.0, 900.0, 2.0),
            (400.0, 1.0, 50.0, -900.0, 3.0), (400.0, 1.0, 50.0, 400.0, 4.0), (-400.0, 1.0, 50.0, 100.0, 5.0),
            (1e-40, 1e-40, 0.0, 1e-45, 6.0), (0.0, 0.0, 0.0, 0.0, 7.0)]
    add("limits of the power triangle", file([body(sets)]), sets)
    add("the same in three phases", file([long("F201", ARON), body(sets)]), sets, net=1)
    sets = [(400.0, 10.0, 50.0, 2000.0, 60.0, 0.0), (400.0, 10.0, 50.0, 2000.0, -0.0, 1.0),
            (400.0, 10.0, 50.0, 2000.0, -1e-45, 2.0), (400.0, 10.0, 50.0, -2000.0, -720.0, 3.0)]
    add("signs of the angle", file([body(sets), marks([])]), sets)
    big = [(1e15, 1e10, 50.0, 1e20, 0.0), (3e38, 3e38, 50.0, 3e38, 1.0)]
    add("great values", file([body(big)]), big)
    for name, value in (("not a number", math.nan), ("infinite", math.inf), ("negative infinite", -math.inf)):
        for column in range(6):
            s = list(WITH_PHI[1])
            s[column] = value
            refuse("%s, column %d" % (name, column + 1), file([body([WITH_PHI[0], tuple(s)]), marks([])]), "fault")
    refuse("a time beyond all", file([body([(400.0, 1.0, 50.0, 100.0, 3e38)])]), "stored")


for group in (plain, headers, unknown, lengths, bodies, times, values):
    group()
out = ",\n".join(json.dumps(v, ensure_ascii=True, separators=(",", ":")) for v in VARIANTS)
sys.stdout.write("[\n" + out + "\n]\n")
