# SPDX-FileCopyrightText: The Morvane developers
"""The manual holds together: a person who follows its links never ends at a page or picture that is not there.

usage: manual_test.py MANUAL_FOLDER
"""

import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

VOID = {"br", "hr", "img", "link", "meta"}


class Page(HTMLParser):
    """What a page refers to and what it offers."""

    def __init__(self, text):
        super().__init__()
        self.links, self.files, self.anchors, self.faults = [], [], set(), []
        self.title, self.style, self.open = "", False, []
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

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> closes nothing at line {self.getpos()[0]}")

    def handle_data(self, data):
        if self.open and self.open[-1] == "title":
            self.title += data


def faults_of(folder):
    pages = {file.name: Page(file.read_text(encoding="utf-8")) for file in sorted(folder.glob("*.html"))}
    for name, page in pages.items():
        yield from (f"{name}: {fault}" for fault in page.faults)
        if not page.title.strip():
            yield f"{name}: no title"
        if not page.style:
            yield f'{name}: no <link rel="stylesheet" type="text/css">'
        for file in page.files:
            if not (folder / unquote(file)).is_file():
                yield f"{name}: {file} is not there"
        for link in map(urlsplit, page.links):
            target = unquote(link.path) or name
            if link.scheme:
                continue
            if target not in pages:
                yield f"{name}: link to {target}, which is not there"
            elif link.fragment and unquote(link.fragment) not in pages[target].anchors:
                yield f"{name}: link to {target}#{link.fragment}, a place that is not there"
    reached, to_do = set(), ["index.html"]
    while to_do:
        name = to_do.pop()
        if name in pages and name not in reached:
            reached.add(name)
            to_do += [unquote(urlsplit(link).path) for link in pages[name].links]
    yield from (f"{name}: no way leads here from index.html" for name in sorted(pages.keys() - reached))
    shown = {unquote(file) for page in pages.values() for file in page.files}
    for picture in sorted(folder.glob("images/*")):
        if f"images/{picture.name}" not in shown:
            yield f"images/{picture.name}: no page shows it"


def main():
    folder = Path(sys.argv[1])
    faults = list(faults_of(folder))
    if not (folder / "index.html").is_file():
        faults.append("index.html is not there")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
