#!/usr/bin/env python3
"""Runs clang-tidy on the files that changed since the branch point, or on all of them.

    tools/tidy.py [--all] [--build FOLDER] [--jobs N] [--seconds N]

A changed header is looked at through a source that includes it. Run from anywhere inside the
checkout; the build folder holds compile_commands.json. Exit status: 0 clean, 1 findings.
"""

import argparse
import concurrent.futures
import json
import os
import re
import subprocess
import sys
import time

# How far back to look where no branch point is known, as on the main branch itself: what came
# before was looked at when it came.
FALLBACK_COMMITS = 1
# One file never takes this long unless the tool hangs.
SECONDS_A_FILE = 300

HEADER = ".h"
SOURCES = (".cpp", ".c")


def git(root, *arguments):
    """The output of a git command, or None where it fails."""
    done = subprocess.run(
        ["git", "-C", root, *arguments], capture_output=True, text=True, check=False
    )
    return done.stdout.strip() if done.returncode == 0 else None


def branch_point(root):
    """The commit to compare with, or None where this checkout does not tell.

    The merge base with the main line; on the main line itself, its last commit.
    """
    head = git(root, "rev-parse", "HEAD")
    for reference in ("origin/main", "main", "@{upstream}"):
        base = git(root, "merge-base", "HEAD", reference)
        if base and base != head:
            return base
    return git(root, "rev-parse", "--verify", "--quiet", f"HEAD~{FALLBACK_COMMITS}")


def changed_files(root):
    """Tracked files that differ from the branch point, uncommitted changes included.

    Without a branch point: the files of the last commit.
    """
    base = branch_point(root)
    if base:
        names = git(root, "diff", "--name-only", "--diff-filter=d", base, "--")
    else:
        names = git(root, "show", "--name-only", "--diff-filter=d", "--format=", "HEAD")
    local = git(root, "diff", "--name-only", "--diff-filter=d", "HEAD", "--")
    return sorted(set((names or "").split("\n") + (local or "").split("\n")) - {""})


def includes_of(root, source):
    """The quoted includes of a source, as written."""
    with open(os.path.join(root, source), encoding="utf-8", errors="replace") as file:
        return re.findall(r'^\s*#\s*include\s*"([^"]+)"', file.read(), re.MULTILINE)


def source_for_header(header, sources, includes):
    """The source through which a header is seen: its own, its test, else the first includer."""
    stem = os.path.splitext(os.path.basename(header))[0]
    users = [s for s in sources if any(header.endswith("/" + i) for i in includes[s])]
    own = [s for s in users if os.path.basename(s) in (stem + ".cpp", stem + "_test.cpp")]
    return next(iter(own + users), None)


def sources_to_check(root, files, sources):
    """The compiled sources that show all of the given files."""
    chosen = {f for f in files if f in sources}
    headers = [f for f in files if f.endswith(HEADER)]
    if headers:
        includes = {s: includes_of(root, s) for s in sources}
        chosen |= {source_for_header(h, sources, includes) for h in headers} - {None}
    return sorted(chosen)  # src/ stands before tests/


def compiled_sources(root, build):
    """The project's sources that the build folder compiles, relative to the root."""
    with open(os.path.join(root, build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    names = {os.path.relpath(e["file"], root) for e in entries}
    return sorted(n for n in names if n.endswith(SOURCES) and not n.startswith((build, "..")))


def reasons(text):
    """Standard error without the counts of warnings in the headers of others."""
    return re.sub(r"^\d+ warnings? .*generated\.\n", "", text, flags=re.MULTILINE)


class Tidy:
    """Runs the tool on one source after another until the time is used up."""

    def __init__(self, root, build, seconds):
        self.command = ["clang-tidy", "--quiet", "-p", os.path.join(root, build)]
        self.root = root
        self.end = time.monotonic() + seconds if seconds else None
        self.failed = []
        self.left = []

    def check(self, source):
        """Checks one source, and shows what was found."""
        if self.end and time.monotonic() > self.end:
            self.left.append(source)
            return
        try:
            done = subprocess.run(
                [*self.command, source], cwd=self.root, capture_output=True, text=True,
                timeout=SECONDS_A_FILE, check=False,
            )
            output, failed = done.stdout + reasons(done.stderr), done.returncode != 0
        except subprocess.TimeoutExpired:
            output, failed = f"{source}: clang-tidy took over {SECONDS_A_FILE} s\n", True
        if failed:
            self.failed.append(source)
            print(output, end="", flush=True)


def parse_arguments(arguments):
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--all", action="store_true", help="all sources, without a time limit")
    parser.add_argument("--build", default="build/asan", help="folder of compile_commands.json")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--seconds", type=int, default=480, help="no source is begun after this")
    return parser.parse_args(arguments)


def main(arguments):
    options = parse_arguments(arguments)
    root = git(".", "rev-parse", "--show-toplevel")
    sources = compiled_sources(root, options.build)
    if not options.all:
        sources = sources_to_check(root, changed_files(root), sources)
    tidy = Tidy(root, options.build, None if options.all else options.seconds)
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        list(pool.map(tidy.check, sources))
    checked = len(sources) - len(tidy.left)
    print(f"clang-tidy: {checked} sources checked, {len(tidy.failed)} with findings")
    if tidy.left:
        print(f"clang-tidy: no time for {len(tidy.left)} of {len(sources)}; --all checks them:")
        print("\n".join("  " + source for source in sorted(tidy.left)))
    return 1 if tidy.failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
