# SPDX-FileCopyrightText: The Morvane developers
"""Includes go from a room of src to the rooms below it, so that no two rooms need each other; what links no Qt includes
nothing of the kit.

usage: rooms.py CHECKOUT
"""
import re
import sys
from pathlib import Path

GROUND = ["session", "law", "data"]
FIRM = ["company", "statements", "review", *GROUND]
# From the ground up: what the rooms of src may include besides themselves.
BELOW = {
    "data": [],
    "law": [],
    "session": ["law", "data"],
    "review": GROUND,
    "widgets": GROUND,
    "statements": ["review", "widgets", *GROUND],
    "company": ["statements", "review", "widgets", *GROUND],
    "report": ["widgets", *FIRM],
    "screens": ["report", "widgets", *FIRM],
    "sim": ["widgets", *FIRM],
    "maint": FIRM,
    "batch": ["report", "maint", *FIRM],
    "app": ["screens", "sim", "report", "maint", "widgets", *FIRM],
}
ROOMS = list(BELOW)
assert all(set(below) < {room, *ROOMS[: ROOMS.index(room)]} for room, below in BELOW.items()), "the table has a circle"
INCLUDE = re.compile(r'^#include ["<]([^">]+)[">]', re.MULTILINE)

checkout = Path(sys.argv[1])
includes = {
    str(path.relative_to(checkout / "src")): INCLUDE.findall(path.read_text())
    for path in sorted((checkout / "src").rglob("*.[ch]*"))
}
found = []
for name, included in includes.items():
    room = name.split("/")[0]
    assert room in BELOW, f"{room} has no place in the table"
    for other in included:
        if other in includes and other.split("/")[0] not in (room, *BELOW[room]):
            found.append(f"src/{name}: {room} includes {other}")

# The sources of the libraries without Qt, with all that they include.
lists = (checkout / "CMakeLists.txt").read_text()
for library in ("morvane_core", "morvane_batch_lib"):
    sources = re.search(rf"add_library\(\s*{library} STATIC([^)]*)\)", lists).group(1).split()
    assert len(sources) > 10, f"the sources of {library} are not read"
    seen = [source.removeprefix("src/") for source in sources]
    for name in seen:
        for other in includes[name]:
            if other.startswith("widgets/") or re.match(r"Q[A-Z]", other):
                found.append(f"src/{name}: {library} includes {other}")
            elif other in includes and other not in seen:
                seen.append(other)
if found:
    print("includes against the arrows:", *found, sep="\n")
    sys.exit(1)
