# SPDX-FileCopyrightText: The Morvane developers
"""Every name that the glossary gives stands in the sources as a whole word, in a source or as a folder.

usage: glossary.py PROJECT
"""
import pathlib
import re
import sys

project = pathlib.Path(sys.argv[1])
glossary = (project / "ARCHITECTURE.md").read_text().split("## Glossary")[1].split("\n## ")[0]
names = [name for row in re.findall(r"^\|.*\|$", glossary, re.M)[2:] for name in re.findall(r"`([^`]+)`", row.split("|")[3])]
assert len(names) > 40, "the table was not found"
words = set(re.findall(r"[^\W\d]\w*", "\n".join(path.read_text() for path in (project / "src").rglob("*.[ch]*"))))
missing = [name for name in names if name not in words and not (project / name).is_dir()]
if missing:
    print("not in the sources:", *missing)
    sys.exit(1)
