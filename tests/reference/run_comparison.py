# SPDX-FileCopyrightText: The Morvane developers
"""Generates firms, brings them into a fresh installation and compares their scores with the independent calculation.

usage: run_comparison.py PROGRAM EDITION COUNT [SEED]

Prints one line per difference. Integers and nulls must agree exactly; X, ritu and A, which are printed singles, to a
millionth. The short names of work types and the texts of errors are not compared.
"""
import json
import pathlib
import subprocess
import sys
import tempfile

from reference import Company, ScoreError

HERE = pathlib.Path(__file__).resolve().parent
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


def of_the_program(program, installation, scenario, period):
    """Of each number its figures, or that it failed."""
    extras = "relief,twelve" if scenario == "genjo" else "twelve"
    chosen = ["--with", extras, "--scenario", scenario] + (["--period", str(period)] if period else [])
    done = subprocess.run([program, "score", installation, "--format", "json", *chosen], capture_output=True)
    assert done.returncode in (0, 1), done.stderr  # 1: some of the firms overflow, on purpose
    scores = json.loads(done.stdout)
    assert (scores["format"], scores["version"]) == ("morvane-score", 1)
    found = {entry["管理No"]: dict(figures(entry)) for entry in scores["companies"]}
    failed = {entry["管理No"]: {"error": True} for entry in scores["errors"]}
    assert len(found) + len(failed) == len(scores["companies"] + scores["errors"]) == len(found | failed)
    return found | failed


def of_the_reference(company, scenario, period):
    try:
        return dict(figures(company.score(period, scenario)))
    except ScoreError:
        return {"error": True}


def main():
    program, edition, count = sys.argv[1:4]
    seed = sys.argv[4] if len(sys.argv) > 4 else "20261"
    differences = 0
    with tempfile.TemporaryDirectory() as name:
        cases, installation = pathlib.Path(name, "cases"), pathlib.Path(name, "installation")
        subprocess.run([sys.executable, HERE / "generate.py", seed, count, cases, edition], check=True)
        subprocess.run([program, "init", installation, "--edition", edition], check=True)
        files = sorted(cases.glob("*.json"))
        subprocess.run([program, "import", installation, *files], check=True, stdout=subprocess.DEVNULL)
        companies = {int(file.stem): Company(file) for file in files}
        for scenario, period in (("genjo", None), ("kaizen", None), ("1", None), ("2", None), ("3", None), ("genjo", 34)):
            ours = of_the_program(program, installation, scenario, period)
            theirs = {number: of_the_reference(company, scenario, period) for number, company in companies.items()}
            for number in sorted(set(ours) | set(theirs)):
                left, right = ours.get(number, {}), theirs.get(number, {})
                for place in sorted(set(left) | set(right)):
                    pair = [side.get(place, "(absent)") for side in (left, right)]
                    if not same(place, *pair):
                        differences += 1
                        print("管理No %s  %s: %s | %s" % (number, place, *pair))
            compared = sum("error" not in entry for entry in ours.values())
            print("%s %s: %d companies compared, %d differences" % (scenario, period or "", compared, differences))
            assert compared > 0 or scenario in "123" or period
    sys.exit(1 if differences else 0)


main()
