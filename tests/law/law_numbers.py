# SPDX-FileCopyrightText: The Morvane developers
"""Outside of src/law no source tells law years apart by their numbers: it asks the row for what it has.

usage: law_numbers.py SRC
"""
import re
import sys
from pathlib import Path

LAW_NUMBER = re.compile(
    r"Law_Year_No\s*[{(]\s*\d"  # a number made a law year
    r"|static_cast<Law_Year_No>"
    r"|\bLaw_Of\(\s*\d"
    r"|\bLaw_Number\([^;]*?\)\s*(?:[<>=!]=|[<>])"  # a law year compared as a number
    r"|\b(?:law|law_year|Simyu_Kubun)\s*(?:[<>=!]=|[<>])\s*\d"
    r"|要素CD\s*=\s*210\s+[Aa][Nn][Dd]\s+現状"  # the same in SQL
)

source = Path(sys.argv[1])
found = [
    f"{path}:{number}: {line.strip()}"
    for path in sorted(source.rglob("*.[ch]*"))
    if path.relative_to(source).parts[0] != "law"
    for number, line in enumerate(path.read_text().splitlines(), 1)
    if LAW_NUMBER.search(line)
]
assert any((source / "law").iterdir()), "no sources there"
if found:
    print("law years told apart by number:", *found, sep="\n")
    sys.exit(1)
