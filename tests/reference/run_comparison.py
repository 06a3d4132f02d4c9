# SPDX-FileCopyrightText: The Morvane developers
"""Generates firms, brings them into a fresh installation and compares their scores with the independent calculation.

usage: run_comparison.py PROGRAM EDITION COUNT [SEED]
"""
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent


def python(script, *arguments, check=False):
    return subprocess.run([sys.executable, HERE / script, *map(str, arguments)], check=check)


def main():
    program, edition, count = sys.argv[1:4]
    seed = sys.argv[4] if len(sys.argv) > 4 else "20261"
    failed = False
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        cases, installation = folder / "cases", folder / "installation"
        python("generate.py", seed, count, cases, "--edition", edition, check=True)
        subprocess.run([program, "init", installation, "--edition", edition], check=True)
        subprocess.run([program, "import", installation, *sorted(cases.glob("*.json"))], check=True,
                       stdout=subprocess.DEVNULL)
        for options in (["--scenario", "genjo"], ["--scenario", "kaizen"], ["--scenario", "1"], ["--period", "34"]):
            with open(folder / "ours.json", "w") as ours:
                # Status 1: some of the firms overflow, on purpose.
                status = subprocess.run([program, "score", installation, "--format", "json", *options], stdout=ours,
                                        stderr=subprocess.DEVNULL).returncode
            assert status in (0, 1), status
            python("reference.py", cases, *options, "-o", folder / "theirs.json")
            print(*options, flush=True)
            failed |= python("compare.py", folder / "ours.json", folder / "theirs.json").returncode != 0
    sys.exit(1 if failed else 0)


main()
