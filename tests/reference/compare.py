# SPDX-FileCopyrightText: The Morvane developers
"""Compares two morvane-score JSON files figure by figure.

    compare.py A.json B.json

Prints one line per difference. Exit status: 0 none, 1 some, 2 where nothing can be compared.
Integers and nulls must agree exactly; X, ritu and A, which are printed singles, to a millionth.
The short names of work types and the texts of errors are not compared.
"""
import json
import sys

TOLERANCE = 1e-6
ROUNDED = ("Y.X.", "Y.ritu.", "Y.A")


def figures(value, place=""):
    """Each figure under its place; lines of work types stand under their code."""
    if isinstance(value, dict):
        for key, inner in value.items():
            if key != "工種略":
                yield from figures(inner, "%s.%s" % (place, key) if place else key)
    elif isinstance(value, list):
        for i, inner in enumerate(value):
            yield from figures(inner, "%s.%s" % (place, inner["工種CD"] if isinstance(inner, dict) else i))
    else:
        yield place, value


def same(place, a, b):
    if place.startswith(ROUNDED) and all(isinstance(v, (int, float)) for v in (a, b)):
        return abs(a - b) <= TOLERANCE * max(abs(a), abs(b))
    return json.dumps(a) == json.dumps(b)


def companies(path):
    """Of each number its figures, or that it failed."""
    with open(path, encoding="utf-8") as f:
        scores = json.load(f)
    assert (scores["format"], scores["version"]) == ("morvane-score", 1), path
    found = {entry["管理No"]: dict(figures(entry)) for entry in scores["companies"]}
    failed = {entry["管理No"]: {"error": True} for entry in scores["errors"]}
    assert len(found) + len(failed) == len(scores["companies"] + scores["errors"]) == len(found | failed), path
    return found | failed


def main():
    a, b = map(companies, sys.argv[1:])
    differences = compared = 0
    for number in sorted(set(a) | set(b)):
        left, right = a.get(number, {}), b.get(number, {})
        compared += "error" not in left and bool(left) and bool(right)
        for place in sorted(set(left) | set(right)):
            pair = [side.get(place, "(absent)") for side in (left, right)]
            if not same(place, *pair):
                differences += 1
                print("管理No %s  %s: %s | %s" % (number, place, *pair))
    print("%d companies compared, %d differences" % (compared, differences), file=sys.stderr)
    if not set(a) & set(b):
        return 2
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
