#!/usr/bin/env python3
"""Compares the names that the shared library exports with the list that is kept of them.

    tools/exported_names.py LIBRARY [--write]

A name that vanishes breaks hosts, and one that appears is a promise: both are to be decided, not to
happen. Inline functions are left out, which one compiler exports and another does not.
"""

import os
import re
import subprocess
import sys

LIST = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "service",
                    "exported_names.txt")
# Functions, constants and data; of weak objects only what tells exported classes apart.
KINDS = set("TBDR")
OWN = ("QXFontService_NS::", "QXCommonNS::")
PREFIXES = ("typeinfo for ", "typeinfo name for ", "vtable for ", "VTT for ")


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", "-C", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    for line in lines:
        _, kind, name = line.split(" ", 2)
        yield kind, re.sub(r"\bicu_\d+::", "icu::", name)  # its version is no matter of ours


def is_own(name):
    for prefix in PREFIXES:
        if name.startswith(prefix):
            name = name[len(prefix):]
    return name.startswith(OWN)


def is_class(name):
    """Sanitizers have type information of functions too."""
    return name.startswith("typeinfo for ") and "(" not in name


def main():
    names, foreign = set(), set()
    for kind, name in exported(sys.argv[1]):
        if not is_own(name):
            foreign.add(name)
        elif kind in KINDS and not name.startswith(PREFIXES) or is_class(name):
            names.add(name)
    if "--write" in sys.argv:
        with open(LIST, "w", encoding="utf-8") as file:
            file.write("".join(f"{name}\n" for name in sorted(names)))
    with open(LIST, encoding="utf-8") as file:
        known = set(file.read().splitlines())
    for name in sorted(foreign):
        print(f"exported, and none of ours: {name}")
    for name in sorted(known - names):
        print(f"no longer exported: {name}")
    for name in sorted(names - known):
        print(f"newly exported: {name}")
    if foreign or known != names:
        print("tools/exported_names.py LIBRARY --write renews the list")
        return 1
    print(f"{len(names)} names")
    return 0


if __name__ == "__main__":
    sys.exit(main())
