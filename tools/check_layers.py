#!/usr/bin/env python3
"""Holds the layers of the project: reads its includes and refuses those that break the table.

    tools/check_layers.py [--root FOLDER] [--write | --print]

Errors: an include of a higher layer or of a row that the table keeps apart, a circle between
folders or files, a project header in angle brackets or written from somewhere else than
include/, src/ or tests/, a quoted header that is not there, C++ in a folder that the table does
not know, and a folder graph in docs/architecture.md that no longer shows the includes.
--write refreshes that graph, --print shows it. Exit status: 0 clean, 1 errors.
"""

import argparse
import os
import re
import sys
from collections import defaultdict
from typing import NamedTuple


class Row(NamedTuple):
    """One row of the table: the folders below `folder`, unless a longer row names them."""

    layer: int
    folder: str
    also: tuple = ()  # rows of the same layer that it sees, beside itself


# An include goes to the same row or to a lower layer. Rows of one layer do not see each other.
LAYERS = (
    Row(0, "include/qxcommon"),
    Row(0, "include/qxfontservice", also=("include/qxcommon",)),
    Row(1, "src/common"),
    Row(2, "src/service/errors"),
    Row(3, "src/font/contract"),
    Row(3, "src/layout"),
    Row(4, "src/type1"),
    Row(5, "src/embed"),
    Row(6, "src/font"),
    Row(7, "src/pool"),
    Row(8, "src/service"),
)

# Hosts see the public headers and their own files.
HOSTS = ("tools", "examples", "bindings", "tests/consumer")

# These look inside: everything of include/ and src/, the builders, and their own files.
INSIDERS = ("tests", "fuzz", "bench")

# Builders of fonts know nothing of the readers: of the library they see bytes and the platform.
SUPPORT = "tests/support"
SUPPORT_SEES = ("include", "src/common", SUPPORT)

# Folders that quoted includes are written from; the tests of the tools see those too.
INCLUDE_ROOTS = ("include", "src", "tests")
TOOL_TESTS = "tests/tools"

CPP_FILES = (".h", ".hpp", ".inc", ".cpp", ".cc", ".c")
NOT_OURS = ("build", ".git", ".cache", "__pycache__")

GRAPH_PAGE = "docs/architecture.md"
GRAPH_BEGIN = "<!-- folder graph: written by tools/check_layers.py --write -->"
GRAPH_END = "<!-- end of the folder graph -->"

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"\n]+)[>"]', re.MULTILINE)
BLOCK_COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)


class Include(NamedTuple):
    file: str
    line: int
    name: str
    bracket: str  # '<' or '"'

    def place(self):
        return f"{self.file}:{self.line}"


def is_below(path, folder):
    return path == folder or path.startswith(folder + "/")


def row_of(path):
    """The row with the longest folder above a file, or None."""
    rows = [row for row in LAYERS if path.startswith(row.folder + "/")]
    return max(rows, key=lambda row: len(row.folder), default=None)


def folder_of(path):
    return os.path.dirname(path)


def project_files(root):
    """All C++ files of the project, sorted, with slashes, relative to the root."""
    found = []
    for folder, below, names in os.walk(root):
        below[:] = sorted(name for name in below if name not in NOT_OURS)
        prefix = os.path.relpath(folder, root).replace(os.sep, "/")
        found += [n if prefix == "." else f"{prefix}/{n}" for n in names if n.endswith(CPP_FILES)]
    return sorted(found)


def includes_in(root, path):
    """The includes of one file; those inside block comments do not count."""
    with open(os.path.join(root, path), encoding="utf-8", errors="replace") as file:
        text = file.read()
    text = BLOCK_COMMENT.sub(lambda comment: "\n" * comment.group().count("\n"), text)
    return [
        Include(path, text.count("\n", 0, match.start(1)) + 1, match.group(2), match.group(1))
        for match in INCLUDE.finditer(text)
    ]


def in_include_roots(files, name):
    """The project file that a name means when it is written from include/, src/ or tests/."""
    for include_root in INCLUDE_ROOTS:
        if f"{include_root}/{name}" in files:
            return f"{include_root}/{name}"
    return None


def beside(files, include):
    """The file that a name means beside the includer, or below the includer's own tool."""
    folder = folder_of(include.file)
    while folder:
        path = os.path.normpath(f"{folder}/{include.name}").replace(os.sep, "/")
        if path in files:
            return path
        folder = folder_of(folder)
    return None


def written_from_root(path):
    """Whether the file has to write its includes from include/, src/ or tests/."""
    return path.split("/")[0] in INCLUDE_ROOTS and not is_below(path, "tests/consumer")


class Checker:
    """Reads the includes of a tree; `errors` says what is wrong, `graph` who includes whom."""

    def __init__(self, root):
        self.root = root
        self.files = set(project_files(root))
        self.graph = defaultdict(set)
        self.errors = []
        for path in sorted(self.files):
            self._check_folder(path)
            for include in includes_in(root, path):
                self._check_include(include)
        self._check_circles()

    def _check_folder(self, path):
        known = row_of(path) or any(path.startswith(f + "/") for f in HOSTS + INSIDERS)
        if not known:
            self.errors.append(f"{path}: no row of the layer table holds its folder")

    def _check_include(self, include):
        target = in_include_roots(self.files, include.name) or self._of_tools(include)
        if include.bracket == "<":
            if target:
                self.errors.append(f"{include.place()}: project header in angle brackets: "
                                   f"<{include.name}>")
            return
        near = beside(self.files, include)
        if not target and near and not written_from_root(include.file):
            target = near
        if not target:
            self.errors.append(f"{include.place()}: " + self._why_unknown(include, near))
            return
        self.graph[include.file].add(target)
        why = forbidden(include.file, target)
        if why:
            self.errors.append(f"{include.place()}: \"{include.name}\": {why}")

    def _of_tools(self, include):
        """The file of a tool that one of its tests names."""
        path = f"tools/{include.name}"
        return path if is_below(include.file, TOOL_TESTS) and path in self.files else None

    @staticmethod
    def _why_unknown(include, near):
        if near:
            return f"\"{include.name}\" is written \"{near.split('/', 1)[1]}\""
        return (f"\"{include.name}\" is no project header (headers of others stand in angle "
                "brackets)")

    def _check_circles(self):
        for circle in circles(self.graph):
            self.errors.append("circle of files: " + " -> ".join(circle))
        for circle in circles(folder_graph(self.graph)):
            self.errors.append("circle of folders: " + " -> ".join(circle))
            self.errors += [f"  {self._example(*edge)}" for edge in zip(circle, circle[1:])]

    def _example(self, folder, other):
        """One include that draws an edge between two folders."""
        return next(
            f"{source} includes {target}"
            for source in sorted(self.graph) if folder_of(source) == folder
            for target in sorted(self.graph[source]) if folder_of(target) == other
        )


def forbidden(source, target):
    """Why a file must not include another, or an empty text."""
    if is_below(source, SUPPORT):
        fine = any(is_below(target, folder) for folder in SUPPORT_SEES)
        return "" if fine else "builders know nothing of the readers"
    if any(is_below(source, host) for host in HOSTS):
        own = is_below(target, source.split("/")[0])
        return "" if own or is_below(target, "include") else "hosts see include/ only"
    if any(is_below(source, insider) for insider in INSIDERS):
        return ""
    return forbidden_between(row_of(source), row_of(target))


def forbidden_between(row, other):
    if row is None:
        return ""  # its folder is an error already
    if other is None:
        return f"{row.folder} is part of the library and sees include/ and src/ only"
    if other.layer > row.layer:
        return f"upward, from layer {row.layer} ({row.folder}) to {other.layer} ({other.folder})"
    if other.layer == row.layer and other != row and other.folder not in row.also:
        return f"{row.folder} and {other.folder} do not see each other"
    return ""


def folder_graph(graph):
    """Who includes whom among folders, the edges inside a folder left out."""
    folders = defaultdict(set)
    for source, targets in graph.items():
        for target in targets:
            if folder_of(source) != folder_of(target):
                folders[folder_of(source)].add(folder_of(target))
    return folders


def circles(graph):
    """The circles that a walk through the graph closes, each as a path back to its beginning."""
    found, done = [], set()
    for start in sorted(graph):
        path, walks = [start], [iter(sorted(graph[start]))]
        while walks:
            node = next(walks[-1], None)
            if node is None:
                done.add(path.pop())
                walks.pop()
            elif node in path:
                found.append(path[path.index(node):] + [node])
            elif node not in done:
                path.append(node)
                walks.append(iter(sorted(graph.get(node, ()))))
    return found


def layer_of_folder(folder):
    row = row_of(folder + "/")
    return row.layer if row else max(r.layer for r in LAYERS) + 1


def graph_text(checker):
    """The folder graph as a text block: layer, folder, what it includes."""
    edges = folder_graph(checker.graph)
    shown = {folder_of(path) for path in checker.files}
    shown = {f for f in shown if row_of(f + "/") or f.startswith("tools/")}
    rows = sorted((layer_of_folder(folder), folder) for folder in shown)
    width = max((len(folder) for folder in shown), default=0)
    lines = []
    for layer, folder in rows:
        seen = ", ".join(sorted(edges[folder] & shown, key=lambda f: (layer_of_folder(f), f)))
        lines.append(f"{layer}  {folder:<{width}}  {seen}".rstrip())
    return "\n".join(["```text", *lines, "```"])


def split_page(text):
    """The page before, inside and after the marks of the graph, or None without marks."""
    begin, end = text.find(GRAPH_BEGIN), text.find(GRAPH_END)
    if begin < 0 or end < begin:
        return None
    begin += len(GRAPH_BEGIN)
    return text[:begin], text[begin:end], text[end:]


def read_page(root):
    try:
        with open(os.path.join(root, GRAPH_PAGE), encoding="utf-8") as file:
            return split_page(file.read())
    except FileNotFoundError:
        return None


def check_page(root, graph):
    """What is wrong with the graph that the page shows, as a list of errors."""
    page = read_page(root)
    if page is None:
        return [f"{GRAPH_PAGE}: the marks of the folder graph are missing"]
    if page[1].strip() != graph:
        return [f"{GRAPH_PAGE}: the folder graph is stale; tools/check_layers.py --write"]
    return []


def write_page(root, graph):
    page = read_page(root)
    if page is None:
        return [f"{GRAPH_PAGE}: the marks of the folder graph are missing"]
    with open(os.path.join(root, GRAPH_PAGE), "w", encoding="utf-8") as file:
        file.write(f"{page[0]}\n{graph}\n{page[2]}")
    return []


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    here = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser.add_argument("--root", default=here, help="the checkout")
    parser.add_argument("--write", action="store_true", help="refresh the graph of the page")
    parser.add_argument("--print", action="store_true", help="show the graph")
    options = parser.parse_args(arguments)
    checker = Checker(options.root)
    graph = graph_text(checker)
    if options.print:
        print(graph)
    on_page = write_page if options.write else check_page
    errors = checker.errors + on_page(options.root, graph)
    for error in errors:
        print(error, file=sys.stderr)
    print(f"{len(checker.files)} files, " + ("errors" if errors else "layers hold"))
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
