# SPDX-FileCopyrightText: The Morvane developers
"""Compares two morvane-score JSON files figure by figure.

    compare.py A.json B.json [--tol 1e-6]

Prints one line per difference. Exit status: 0 none, 1 some, 2 bad arguments.
Integers and nulls must agree exactly; X, ritu and A to the relative tolerance.
The short names of work types and the texts of errors are not compared.
"""

import argparse
import json
import sys

HEAD = ("事業所名", "決算期", "Simyu_Kubun", "scenario")
EXACT = {
    "Y": ("Y",),
    "X2": ("Jiko", "Jiko_Used", "Rieki", "Rieki_Used", "X2_1", "X2_2", "X2"),
    "W": ("W1", "W2", "W3", "W4", "W5", "W6", "W7", "W8", "W")}
LINE = ("完工高平均", "評点X1", "評点Z1", "元請完工高平均", "評点Z2", "評点Z", "総合評点P")

ABSENT = "(absent)"


def show(v):
    return v if v is ABSENT else json.dumps(v, ensure_ascii=False)


def number(v):
    return isinstance(v, (int, float)) and not isinstance(v, bool)


def close(a, b, tol):
    if not (number(a) and number(b)):
        return False
    return a == b or abs(a - b) <= tol * max(abs(a), abs(b))


def same(a, b):
    if number(a) and number(b):
        return a == b
    return type(a) is type(b) and a == b


class Report:
    def __init__(self):
        self.count = 0

    def add(self, company, where, a, b):
        self.count += 1
        print("管理No %s  %s: %s | %s" % (company, where, show(a), show(b)))


def get(mapping, *keys):
    for key in keys:
        if isinstance(mapping, dict) and key in mapping:
            mapping = mapping[key]
        elif isinstance(mapping, list) and isinstance(key, int) and 0 <= key < len(mapping):
            mapping = mapping[key]
        else:
            return ABSENT
    return mapping


def lines_of(score):
    lines = get(score, "Kandaka_Gj")
    return {get(l, "工種CD"): l for l in lines} if isinstance(lines, list) else {}


def compare_company(no, a, b, tol, report):
    for key in HEAD:
        if not same(get(a, key), get(b, key)):
            report.add(no, key, get(a, key), get(b, key))
    floats = [("Y", "A")]
    for name in ("X", "ritu"):
        floats += [("Y", name, i) for i in range(8)]
        for side in (a, b):
            found = get(side, "Y", name)
            if not isinstance(found, list) or len(found) != 8:
                report.add(no, "Y.%s: 8 numbers expected" % name, get(a, "Y", name), get(b, "Y", name))
                break
    for path in floats:
        va, vb = get(a, *path), get(b, *path)
        if not close(va, vb, tol):
            where = ".".join(path[:2]) + ("%d" % (path[2] + 1) if len(path) > 2 else "")
            report.add(no, where, va, vb)
    for group, keys in EXACT.items():
        for key in keys:
            va, vb = get(a, group, key), get(b, group, key)
            if va is ABSENT or not same(va, vb):
                report.add(no, "%s.%s" % (group, key), va, vb)
    la, lb = lines_of(a), lines_of(b)
    for index in sorted(set(la) | set(lb), key=str):
        if index not in la or index not in lb:
            report.add(no, "工種CD %s" % index, "line" if index in la else ABSENT,
                       "line" if index in lb else ABSENT)
            continue
        for key in LINE:
            va, vb = get(la[index], key), get(lb[index], key)
            if va is ABSENT or not same(va, vb):
                report.add(no, "工種CD %s %s" % (index, key), va, vb)


def by_number(scores, key, name):
    found = {}
    for entry in scores.get(key, []):
        no = entry["管理No"]
        if no in found:
            raise ValueError("%s: 管理No %s twice in %s" % (name, no, key))
        found[no] = entry
    return found


def main(argv=None):
    parser = argparse.ArgumentParser(description="Compare two score files.")
    parser.add_argument("a")
    parser.add_argument("b")
    parser.add_argument("--tol", type=float, default=1e-6, help="relative tolerance of X, ritu, A")
    args = parser.parse_args(argv)

    sides = []
    try:
        for name in (args.a, args.b):
            with open(name, encoding="utf-8") as f:
                scores = json.load(f)
            if scores.get("format") != "morvane-score" or scores.get("version") != 1:
                raise ValueError("%s: not a score file" % name)
            sides.append((by_number(scores, "companies", name), by_number(scores, "errors", name)))
    except (OSError, ValueError, KeyError) as error:
        print("compare: %s" % error, file=sys.stderr)
        return 2

    report = Report()
    (ca, ea), (cb, eb) = sides
    both = 0
    for no in sorted(set(ca) | set(cb) | set(ea) | set(eb)):
        def state(scores, errors):
            if no in scores:
                return "score"
            return "error: %s" % errors[no].get("error") if no in errors else ABSENT
        sa, sb = state(ca, ea), state(cb, eb)
        if sa.split(":")[0] != sb.split(":")[0]:
            report.add(no, "company", sa, sb)
        elif sa == "score":
            both += 1
            compare_company(no, ca[no], cb[no], args.tol, report)
    print("%d companies compared, %d errors in common, %d differences"
          % (both, len(set(ea) & set(eb)), report.count), file=sys.stderr)
    if both + len(set(ea) & set(eb)) == 0:
        print("compare: nothing in common", file=sys.stderr)
        return 2
    return 1 if report.count else 0


if __name__ == "__main__":
    sys.exit(main())
