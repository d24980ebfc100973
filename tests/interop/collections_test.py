#!/usr/bin/env python3
"""Lays each face of files with several fonts beside the same font in a file of its own.

Collections are those installed, their members cut out by fontTools; suitcases are made here from
installed fonts. The variable QXFONT names the program; ctest sets it.
"""

import glob
import json
import logging
import os
import shutil
import struct
import subprocess
import tempfile
import unittest

from fontTools.ttLib import TTCollection, TTFont

QXFONT = os.environ["QXFONT"]
ZEN_HEI = "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc"
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
DEJAVU_BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
IPA = "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"
TEXT = "Sphinx of quartz, À Žlutý жук 中文字形ひらがな「」"

logging.getLogger("fontTools").setLevel(logging.ERROR)


def collections():
    return sorted(glob.glob("/usr/share/fonts/**/*.tt[cC]", recursive=True))


def has_cff(path):
    with TTCollection(path, lazy=True) as collection:
        return any("CFF " in font for font in collection)


def tables_of(path):
    """The tables of an sfnt; `head` without its checkSumAdjustment, which is that of a file."""
    with TTFont(path, lazy=True) as font:
        tables = {tag: font.reader[tag] for tag in font.reader.keys()}
    tables["head"] = tables["head"][:8] + bytes(4) + tables["head"][12:]
    return tables


def suitcase(paths):
    """A resource fork as a plain file, with a resource of another kind before the fonts."""
    resources = [(b"FOND", bytes(8))]
    for path in paths:
        with open(path, "rb") as file:
            resources.append((b"sfnt", file.read()))
    data, places = b"", {}
    for kind, content in resources:
        places.setdefault(kind, []).append(len(data))
        data += struct.pack(">I", len(content)) + content
    types, references = struct.pack(">H", len(places) - 1), b""
    for kind, offsets in places.items():
        first = 2 + 8 * len(places) + len(references)
        types += kind + struct.pack(">HH", len(offsets) - 1, first)
        for number, offset in enumerate(offsets):
            references += struct.pack(">HHII", 128 + number, 0xFFFF, offset, 0)
    head = struct.pack(">4I", 256, 256 + len(data), len(data), 28 + len(types) + len(references))
    lists = struct.pack(">HH", 28, 28 + len(types) + len(references)) + types + references
    return head + bytes(240) + data + head + bytes(8) + lists


class ContainerTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        os.mkdir(self.path("none"))

    def path(self, name):
        return os.path.join(self.folder, name)

    def call(self, *arguments, status=0):
        """Runs the tool over a world without fonts: each is named by its path."""
        done = subprocess.run([QXFONT, *arguments, "--only", self.path("none")],
                              capture_output=True, timeout=300, check=False)
        self.assertEqual(done.returncode, status, f"{arguments}\n{done.stderr.decode()}")
        return done.stdout.decode("utf-8"), done.stderr.decode("utf-8")

    def run_tool(self, *arguments, status=0):
        return self.call(*arguments, status=status)[0]

    def facts(self, path, face=0):
        return json.loads(self.run_tool("info", path, "--face", str(face), "--json"))

    def glyphs(self, path, face=0):
        return [json.loads(self.run_tool("glyphs", path, TEXT, "--face", str(face), *more))
                for more in (["--json"], ["--json", "--size", "12"], ["--json", "--vertical"])]

    def form(self, name, path, face=0):
        """The tables of a form of embedding."""
        out = self.path("form.ttf")
        self.run_tool("embed", path, "--face", str(face), "--form", name, "--text", TEXT,
                      "--allow-restricted", "-o", out,
                      *(["--as-specified"] if name == "sfnt-all" else []))
        return tables_of(out)

    def assert_same_forms(self, names, file, face, alone):
        for name in names:
            written, expected = self.form(name, file, face), self.form(name, alone)
            self.assertEqual(sorted(written), sorted(expected), name)
            for tag, content in expected.items():
                self.assertEqual(written[tag], content, f"{name} {tag}")


class CollectionTest(ContainerTest):
    def cut(self, path, face):
        """The member as a file of its own, its tables as they are."""
        alone = self.path(f"{face}.ttf")
        with TTFont(path, fontNumber=face, lazy=True, recalcBBoxes=False,
                    recalcTimestamp=False) as font:
            font.save(alone)
        return alone

    def test_there_is_one_to_look_at(self):
        self.assertIn(ZEN_HEI, collections())

    def test_members_answer_as_the_same_font_alone(self):
        for path in collections():
            if has_cff(path):
                continue
            with TTCollection(path, lazy=True) as collection:
                count = len(collection)
            self.run_tool("info", path, "--face", str(count), status=1)
            for face in range(count):
                with self.subTest(path=path, face=face):
                    self.assert_same_member(path, face)

    def assert_same_member(self, path, face):
        alone = self.cut(path, face)
        self.assertEqual(self.facts(path, face), self.facts(alone))
        self.assertEqual(self.glyphs(path, face), self.glyphs(alone))
        self.assert_same_forms(("sfnt", "sfnt-cmap", "sfnt-all", "svg2", "stream"), path, face,
                               alone)

    def test_collections_with_cff_are_refused(self):
        for path in filter(has_cff, collections()):
            with self.subTest(path=path):
                said = self.call("info", path, status=3)[1]
                self.assertEqual(said, "qxfont: Font file error: Not a collection of TrueType "
                                 f"fonts: {path}\n")


class SuitcaseTest(ContainerTest):
    SOURCES = (DEJAVU, LATO, DEJAVU_BOLD, IPA)

    def setUp(self):
        super().setUp()
        self.file = self.path("all.dfont")
        with open(self.file, "wb") as file:
            file.write(suitcase(self.SOURCES))

    def test_members_answer_as_their_sources(self):
        for face, source in enumerate(self.SOURCES):
            with self.subTest(source=source):
                member, font = self.facts(self.file, face), self.facts(source)
                font["style"]["stretch"] = 5  # suitcases tell no stretch and no preferred names
                for part in ("style", "embedding", "metrics"):
                    self.assertEqual(member[part], font[part])
                for language, names in font["names"].items():
                    for key, name in names.items():
                        if not key.startswith("preferred"):
                            self.assertEqual(member["names"][language][key], name)
                self.assertEqual(self.glyphs(self.file, face), self.glyphs(source))

    def test_forms_are_those_of_the_sources(self):
        for face, source in enumerate(self.SOURCES):
            with self.subTest(source=source):
                self.assert_same_forms(("sfnt", "sfnt-cmap"), self.file, face, source)
                self.assertEqual(self.form("stream", self.file, face), tables_of(source))

    def test_forms_that_suitcases_do_not_have(self):
        for form, more in (("sfnt-all", ["--as-specified"]), ("svg2", [])):
            out = self.path("out")
            self.run_tool("embed", self.file, "--form", form, "--text", "a", *more, "-o", out,
                          status=2)
            self.assertFalse(os.path.exists(out))

    def test_strict_readers_take_a_form_that_they_have(self):
        out = self.path("out.ttf")
        self.run_tool("embed", self.file, "--form", "sfnt-all", "--text", "a", "-o", out)
        self.assertEqual(set(tables_of(out)), set(tables_of(self.SOURCES[0])) - {"DSIG"})

    def test_a_face_that_is_not_there(self):
        self.run_tool("info", self.file, "--face", str(len(self.SOURCES)), status=1)

    def test_a_suitcase_without_fonts(self):
        path = self.path("empty.dfont")
        with open(path, "wb") as file:
            file.write(suitcase([]))
        self.run_tool("info", path, status=3)


if __name__ == "__main__":
    unittest.main()
