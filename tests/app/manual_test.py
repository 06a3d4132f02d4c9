# SPDX-FileCopyrightText: The Morvane developers
"""The manual holds together and tells of the program that is there: links and pictures lead somewhere, every message
and button it quotes stands in the sources, every entry that is not built yet is told as such.

usage: manual_test.py MANUAL_FOLDER SOURCE_FOLDER
"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

VOID = {"br", "hr", "img", "link", "meta"}
# Heads of the first column of a table of messages.
MESSAGE_HEADS = {"メッセージ", "メッセージ・状態", "表示される理由"}
# A message names a button in its own words.
OTHER_BUTTONS = {"経営状況(Y)"}


class Page(HTMLParser):
    """What a page refers to, what it offers, and what it quotes of the program."""

    def __init__(self, text):
        super().__init__()
        self.links, self.files, self.anchors, self.faults = [], [], set(), []
        self.title, self.style, self.open = "", False, []
        self.text, self.messages = "", []
        self.cell, self.column, self.of_messages = "", 0, False
        self.feed(text)
        self.close()
        self.faults += [f"<{tag}> is not closed" for tag in self.open]

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if tag not in VOID:
            self.open.append(tag)
        self.anchors.update(value for key, value in attributes if key in ("id", "name") and tag != "meta")
        if tag == "a" and "href" in given:
            self.links.append(given["href"])
        elif tag == "img":
            self.files.append(given.get("src", ""))
            if not (given.get("alt") or "").strip():
                self.faults.append(f"picture {given.get('src')} without a text for those who cannot see it")
        elif tag == "link" and given.get("rel") == "stylesheet":
            self.files.append(given.get("href", ""))
            # The help window reads a sheet only where its type is told.
            self.style = given.get("type") == "text/css"
        elif tag == "tr":
            self.column = 0
        elif tag in ("td", "th"):
            self.cell = ""
        elif tag == "br":
            self.cell += "\n"

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> closes nothing at line {self.getpos()[0]}")
        if tag == "b":
            self.cell += "\n"
        elif tag in ("td", "th"):
            if self.column == 0:
                if tag == "th":
                    self.of_messages = self.cell.strip() in MESSAGE_HEADS
                elif self.of_messages:
                    self.messages.append(self.cell)
            self.column += 1
        elif tag in ("p", "li", "tr"):
            self.text += "\n"

    def handle_data(self, data):
        if self.open and self.open[-1] == "title":
            self.title += data
        self.cell += data
        self.text += data


def bare(text):
    """Blanks and mnemonics do not count."""
    return re.sub(r"[\s　]+", "", re.sub(r"\(&\w\)", "", text).replace("&&", "\0").replace("&", "").replace("\0", "&"))


def sentences_of(cell):
    """The parts of a quoted message that stand still: （…）, 「…」, law years, numbers, ○ and … are what the program
    fills in."""
    for line in cell.split("\n"):
        for sentence in re.split(r"(?<=[。！？])", line):
            parts = re.split(r"（[^）]*）|「[^」]*」|\d+年改正(?:以降)?(?=の)|[○…～]|\d+", sentence)
            yield from (part for part in map(bare, parts) if len(part) > 1)


def literals_of(folder):
    """Every text of the sources, those in pieces joined."""
    found = []
    for file in sorted(folder.rglob("*.cpp")) + sorted(folder.rglob("*.h")):
        text = re.sub(r"^\s*//.*$", "", file.read_text(encoding="utf-8"), flags=re.M)
        text = re.sub(r'"\s*\n?\s*"', "", text)
        found += [bare(literal.replace("\\n", "").replace('\\"', '"'))
                  for literal in re.findall(r'"((?:[^"\\\n]|\\.)*)"', text)]
    return found


def is_held(part, everything, pieces):
    """Whether a source holds the text, as it stands or joined from two or three whole pieces."""

    def joined(text, most):
        return text in pieces or (
            most > 1 and any(text[:cut] in pieces and joined(text[cut:], most - 1) for cut in range(2, len(text))))

    return part in everything or joined(part, 3)


def quotes_of(pages, sources):
    """Messages, buttons and titles the manual quotes and no source holds."""
    literals = literals_of(sources)
    everything = "\n".join(literals)
    pieces = {piece for literal in literals for piece in re.split(r"(?<=[。！？])", literal) if piece}
    captions = set(literals) | OTHER_BUTTONS
    for name, page in pages.items():
        # What the program says stands in the tables of messages and, as whole sentences, between 「 and 」.
        for quoted in page.messages + re.findall(r"「([^」\n]+[。！？])」", page.text):
            yield from (f"{name}: no source holds the message 「{part}」" for part in sentences_of(quoted)
                        if not is_held(part, everything, pieces))
        for button in sorted(set(re.findall(r"［([^］]+)］", page.text))):
            if bare(button) not in captions:
                yield f"{name}: no source holds the button ［{button}］"


# Where forms and reports are made, and where a user can ask for one.
BUILT = [("app/form_table.cpp", r'\{"(\w+)", Make'), ("report/report_table.cpp", r'\{"(Rpt_\w+)"')]
ASKED = [
    ("app/menu_table.cpp", r'"(Frm_\w+)"'),
    ("app/frm_main.cpp", r'"(Frm_\w+)"'),
    ("law/law_rows.h", r'_form = "(Frm_\w+)"'),
    ("law/law_rows.h", r'_report = "(Rpt_\w+)"'),
    ("screens/*.cpp", r'"(Rpt_\w+)"'),
    ("**/*.cpp", r'Open_Form\(QStringLiteral\("(\w+)"\)'),
]


def forms_in(sources, places):
    return {form for glob, pattern in places for file in sources.glob(glob)
            for form in re.findall(pattern, file.read_text(encoding="utf-8"))}


def preparing_of(pages, sources):
    page = pages.get("preparing.html")
    told = {anchor for anchor in (page.anchors if page else ()) if anchor.startswith(("Frm_", "Rpt_"))}
    missing = forms_in(sources, ASKED) - forms_in(sources, BUILT) - {"Frm_Main", "Frm_Command"}
    yield from (f"preparing.html: does not tell that {form} is not there yet" for form in sorted(missing - told))
    yield from (f"preparing.html: {form} is there by now" for form in sorted(told - missing))


def faults_of(folder, sources):
    pages = {file.name: Page(file.read_text(encoding="utf-8")) for file in sorted(folder.glob("*.html"))}
    for name, page in pages.items():
        yield from (f"{name}: {fault}" for fault in page.faults)
        if not page.title.strip():
            yield f"{name}: no title"
        if not page.style:
            yield f'{name}: no <link rel="stylesheet" type="text/css">'
        yield from (f"{name}: {file} is not there" for file in page.files if not (folder / unquote(file)).is_file())
        for link in map(urlsplit, page.links):
            target = unquote(link.path) or name
            if link.scheme:
                continue
            if target not in pages:
                yield f"{name}: link to {target}, which is not there"
            elif link.fragment and unquote(link.fragment) not in pages[target].anchors:
                yield f"{name}: link to {target}#{link.fragment}, a place that is not there"
    if "index.html" not in pages:
        yield "index.html is not there"
    reached, to_do = set(), ["index.html"]
    while to_do:
        name = to_do.pop()
        if name in pages and name not in reached:
            reached.add(name)
            to_do += [unquote(urlsplit(link).path) for link in pages[name].links]
    yield from (f"{name}: no way leads here from index.html" for name in sorted(pages.keys() - reached))
    shown = {unquote(file) for page in pages.values() for file in page.files}
    pictures = {f"images/{picture.name}" for picture in folder.glob("images/*")}
    yield from (f"{picture}: no page shows it" for picture in sorted(pictures - shown))
    yield from quotes_of(pages, sources)
    yield from preparing_of(pages, sources)


def main():
    folder, sources = Path(sys.argv[1]), Path(sys.argv[2])
    faults = list(faults_of(folder, sources))
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
