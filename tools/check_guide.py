#!/usr/bin/env python3
"""Holds the guide for host developers to the programs and headers that it speaks of.

    tools/check_guide.py [--root FOLDER] [--write]

Each block of code in docs/guide/*.md is a region of a file that is compiled and run, named in a
comment above it:

    <!-- examples/open_service.cpp [open] -->

In the file, the lines `[open]` and `[open end]` in comments enclose the region. Errors: a block
without such a comment or with other text than its region, a region that no page shows or that has
no end, a link or an anchor that leads nowhere, a page that the contents do not name, and a name of
the interface in `code` that no public header and no example has. --write puts the regions into the
blocks. Exit status: 0 clean, 1 errors.
"""

import argparse
import os
import re
import sys
import textwrap

GUIDE = "docs/guide"
CONTENTS = "README.md"
EXAMPLES = "examples"
NAMES = ("include", EXAMPLES)  # where a name of the interface may stand

MARK = re.compile(r"^\s*(?://|<!--|#) \[([a-z0-9 ]+?)( end)?\](?: -->)?\s*$")
SOURCE = re.compile(r"^<!-- (\S+) \[([a-z0-9 ]+)\] -->$")
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ (.*)$")
CODE = re.compile(r"`([^`]+)`")
WORD = re.compile(r"[A-Za-z_][A-Za-z0-9_]*")

# What is taken for a name of the interface: its prefixes, and words such as `getGlyphID`.
OURS = re.compile(r"^(?:FS_\w+|QX[A-Z]\w+|GCD_\w+|Glyph[A-Z]\w+|[a-z]+[A-Z]\w*)$")
NOT_OURS = re.compile(r"[/\\<>=\"]|^(?:hb|FT|Fc)[_A-Z]")


def read_lines(path):
    with open(path, encoding="utf-8") as file:
        return file.read().split("\n")


def regions_of(lines):
    """The regions of a file by name, without the marks of others inside, and what is wrong."""
    regions, opened, errors = {}, {}, []
    for number, line in enumerate(lines, 1):
        mark = MARK.match(line)
        if not mark:
            for text in opened.values():
                text.append(line)
            continue
        name, ends = mark[1], bool(mark[2])
        if not ends and (name in opened or name in regions):
            errors.append(f"{number}: [{name}] stands here a second time")
        elif not ends:
            opened[name] = []
        elif name not in opened:
            errors.append(f"{number}: [{name}] ends without a beginning")
        else:
            regions[name] = textwrap.dedent("\n".join(opened.pop(name))).strip("\n").split("\n")
    errors += [f"{len(lines)}: [{name}] has no end" for name in opened]
    return regions, errors


def anchor_of(heading):
    """The anchor of a heading as the usual renderers of Markdown make it."""
    text = re.sub(r"[^\w\- ]", "", heading.strip().lower())
    return text.replace(" ", "-")


class Page:
    """A page of the guide: its text, and where its blocks stand."""

    def __init__(self, path):
        self.path = path
        self.lines = read_lines(path)

    def blocks(self):
        """(source comment or None, first line behind the fence, line of the closing fence)"""
        found, start = [], None
        for i, line in enumerate(self.lines):
            if not line.startswith("```"):
                continue
            if start is None:
                start = i + 1
            else:
                found.append((self._source(start - 2), start, i))
                start = None
        return found

    def _source(self, above):
        return SOURCE.match(self.lines[above]) if above >= 0 else None

    def text_lines(self):
        """Its lines outside of blocks, numbered from 1."""
        inside = False
        for number, line in enumerate(self.lines, 1):
            if line.startswith("```"):
                inside = not inside
            elif not inside:
                yield number, line

    def anchors(self):
        headings = (HEADING.match(line) for _, line in self.text_lines())
        return {anchor_of(heading[1]) for heading in headings if heading}


class Checker:
    def __init__(self, root):
        self.root = root
        self.errors = []
        self.shown = set()
        self.sources = {}
        self.pages = {}
        for name in sorted(os.listdir(self._path(GUIDE))):
            if name.endswith(".md"):
                self.pages[name] = Page(self._path(GUIDE, name))

    def _path(self, *parts):
        return os.path.join(self.root, *parts)

    def _error(self, place, text):
        self.errors.append(f"{place}: {text}")

    def _regions(self, file):
        if file not in self.sources:
            self.sources[file], errors = regions_of(read_lines(self._path(file)))
            for error in errors:
                self._error(file, error)
        return self.sources[file]

    def region(self, source, place):
        """The region that a comment names, or None."""
        file, name = source[1], source[2]
        if not os.path.isfile(self._path(file)):
            return self._error(place, f"there is no file {file}")
        if name not in self._regions(file):
            return self._error(place, f"{file} has no region [{name}]")
        self.shown.add((file, name))
        return self._regions(file)[name]

    def check_blocks(self):
        for name, page in self.pages.items():
            for source, start, end in page.blocks():
                place = f"{GUIDE}/{name}:{start}"
                if source is None:
                    self._error(place, "no comment above the block names its source")
                    continue
                region = self.region(source, place)
                if region is not None and region != page.lines[start:end]:
                    self._error(place, f"differs from {source[1]} [{source[2]}]; --write mends it")

    def write_blocks(self):
        for page in self.pages.values():
            for source, start, end in reversed(page.blocks()):
                region = self.region(source, page.path) if source else None
                if region is not None:
                    page.lines[start:end] = region
            with open(page.path, "w", encoding="utf-8") as file:
                file.write("\n".join(page.lines))

    def check_regions(self):
        for name in sorted(os.listdir(self._path(EXAMPLES))):
            file = f"{EXAMPLES}/{name}"
            if not os.path.isfile(self._path(file)):
                continue
            for region in self._regions(file):
                if (file, region) not in self.shown:
                    self._error(file, f"no page shows [{region}]")

    def check_links(self):
        for name, page in self.pages.items():
            for number, line in page.text_lines():
                for target in LINK.findall(line):
                    if not self._leads_somewhere(target, name, page):
                        self._error(f"{GUIDE}/{name}:{number}", f"{target} leads nowhere")

    def _leads_somewhere(self, target, name, page):
        if re.match(r"[a-z]+:", target):
            return True
        file, _, anchor = target.partition("#")
        if not anchor:
            return os.path.exists(self._path(GUIDE, file))
        page = self.pages.get(file or name)
        return page is not None and anchor in page.anchors()

    def check_contents(self):
        named = {target.partition("#")[0] for line in self.pages[CONTENTS].lines
                 for target in LINK.findall(line)}
        for name in self.pages:
            if name not in named | {CONTENTS}:
                self._error(f"{GUIDE}/{CONTENTS}", f"does not name {name}")

    def known_words(self):
        words = set()
        for top in NAMES:
            for folder, _, files in os.walk(self._path(top)):
                for name in files:
                    with open(os.path.join(folder, name), encoding="utf-8") as file:
                        words.update(WORD.findall(file.read()))
        return words

    def check_names(self):
        known = self.known_words()
        for name, page in self.pages.items():
            for number, line in page.text_lines():
                for code in CODE.findall(line):
                    if NOT_OURS.search(code):
                        continue
                    for word in WORD.findall(code):
                        if OURS.match(word) and word not in known:
                            self._error(f"{GUIDE}/{name}:{number}", f"no header has {word}")

    def check(self):
        self.check_blocks()
        self.check_regions()
        self.check_links()
        self.check_contents()
        self.check_names()
        return self.errors


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--root", default=os.path.dirname(here))
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    checker = Checker(options.root)
    if options.write:
        checker.write_blocks()
        checker = Checker(options.root)
    errors = checker.check()
    for error in errors:
        print(error, file=sys.stderr)
    if errors:
        return 1
    print(f"{len(checker.pages)} pages, {len(checker.shown)} blocks, all as in their sources")
    return 0


if __name__ == "__main__":
    sys.exit(main())
