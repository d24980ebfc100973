#!/usr/bin/env python3
"""Writes one face of a font collection as a font of its own, its tables as they are.

    cut_face.py COLLECTION POSTSCRIPT-NAME FILE
"""

import sys

from fontTools.ttLib import TTCollection


def main(collection, name, path):
    for font in TTCollection(collection, lazy=True).fonts:
        if font["name"].getDebugName(6) == name:
            font.save(path)
            return 0
    print(f"cut_face: {collection} has no face {name}", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
