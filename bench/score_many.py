# SPDX-FileCopyrightText: The Morvane developers
"""Scores many companies with morvane-batch and reads the same rows through the bare store engine, side by side.

usage: score_many.py BIN [COUNT ...]        BIN: the folder of the bench build's programs

For each count (100, 1,000 and 10,000 unless told otherwise) an installation is made of copies of generated firms,
then both programs run several times by turns; the best and the median time of each are printed, with the highest
memory of the scoring.
"""
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
FIRMS = 40
ROUNDS = 5


def run(*command, out=subprocess.DEVNULL):
    """Wall time, user and system time in seconds and peak memory in MiB of a command."""
    start = time.perf_counter()
    process = subprocess.Popen(list(map(str, command)), stdout=out, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    assert os.waitstatus_to_exitcode(status) in (0, 1), command
    return time.perf_counter() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def make_installation(programs, folder, count):
    """An installation of `count` companies: generated firms once through the import, then copies of their files."""
    cases = folder / "cases"
    subprocess.run([sys.executable, HERE.parent / "tests/reference/generate.py", "5", str(FIRMS), str(cases)], check=True)
    installation = folder / "installation"
    subprocess.run([programs / "morvane-batch", "init", installation], check=True)
    subprocess.run([programs / "morvane-batch", "import", installation, *sorted(cases.glob("*.json"))], check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run([programs / "morvane-register", installation, str(count), str(FIRMS)], check=True)
    return installation


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    counts = [int(a) for a in sys.argv[2:]] or [100, 1000, 10000]
    print(f"{'companies':>9} {'threads':>7} {'score s':>9} {'median':>8} {'bare s':>8} {'median':>8} {'ratio':>6} "
          f"{'ms each':>8} {'cpu ms':>7} {'MiB':>6}")
    for count in counts:
        with tempfile.TemporaryDirectory(dir=os.environ.get("MORVANE_BENCH_DIR")) as name:
            installation = make_installation(programs, pathlib.Path(name), count)
            for threads in (1, 2):
                ours, bare = [], []
                for _ in range(ROUNDS):
                    ours.append(run(programs / "morvane-batch", "score", installation, "--format", "json", "--jobs", threads))
                    bare.append(run(programs / "bare_read", installation, threads))
                best, base = min(o[0] for o in ours), min(b[0] for b in bare)
                print(f"{count:>9} {threads:>7} {best:>9.3f} {statistics.median(o[0] for o in ours):>8.3f} "
                      f"{base:>8.3f} {statistics.median(b[0] for b in bare):>8.3f} {best / base:>6.2f} "
                      f"{1000 * best / count:>8.3f} {1000 * min(o[1] for o in ours) / count:>7.3f} "
                      f"{max(o[2] for o in ours):>6.1f}", flush=True)


main()
