# SPDX-FileCopyrightText: The Morvane developers
"""The program and the core library refer to no Qt symbol and no Qt library.

usage: links_no_qt.py PROGRAM LIBRARY
"""
import re
import subprocess
import sys


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


program, library = sys.argv[1:]
needed = [line for line in output("readelf", "-d", program).splitlines() if "NEEDED" in line]
assert any("sqlcipher" in line for line in needed), "the program does not link the store engine: wrong file?"
found = [line for line in needed if re.search(r"libQt", line)]
found += re.findall(r"\b(?:_ZN?K?\d+Q[A-Z]\w+|qt_\w+)", output("nm", "--undefined-only", library))
if found:
    print("Qt in the core:", *found, sep="\n")
    sys.exit(1)
