#!/usr/bin/env python3
"""Lays `qxfont outline` beside FreeType, asked with the same calls, over every installed font.

The variable QXFONT names the program; ctest sets it. Of fonts with more than 400 glyphs every n-th
is drawn; with QX_OUTLINE_ALL=1 all of them.
"""

import contextlib
import glob
import json
import math
import os
import re
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

import freetype
from fontTools.ttLib import TTCollection, TTFont

QXFONT = os.environ["QXFONT"]
ALL = os.environ.get("QX_OUTLINE_ALL") == "1"
MOST = 400  # glyphs of a font that are drawn unless all are wanted
PATTERNS = ("truetype/**/*.ttf", "truetype/**/*.ttc", "opentype/**/*.otf", "opentype/**/*.ttf",
            "opentype/**/*.ttc")
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
SVG = "{http://www.w3.org/2000/svg}"


def run(*command, status=0):
    done = subprocess.run(command, capture_output=True, check=False)
    if done.returncode != status:
        raise AssertionError(f"{command}: {done.returncode} {done.stderr.decode()}")
    return done.stdout.decode()


def is_read(path):
    """Collections of fonts with CFF outlines are refused."""
    if not path.endswith(".ttc"):
        return True
    with TTCollection(path, lazy=True) as collection:
        return not any("CFF " in font for font in collection)


def installed():
    """Each font file once, however many names lead to it."""
    found = set()
    for pattern in PATTERNS:
        for path in glob.glob(os.path.join("/usr/share/fonts", pattern), recursive=True):
            found.add(os.path.realpath(path))
    return sorted(filter(is_read, found))


def scale_of(units_per_em):
    return max(10, 4096 // units_per_em & ~1) if units_per_em else 10


def towards_zero(value, by):
    return math.trunc(value / by)


class Peer:
    """A face of FreeType at the size that the service sets."""

    def __init__(self, path, index=0):
        self.face = freetype.Face(path, index)
        self.scale = scale_of(self.face.units_per_EM)
        # A font of bitmaps alone has no such size, and is asked all the same.
        with contextlib.suppress(freetype.FT_Exception):
            self.face.set_char_size(0, self.scale * self.face.units_per_EM, 0, 0)

    def row(self, gid):
        face = self.face
        try:
            face.load_glyph(gid, 0)
        except freetype.FT_Exception:
            try:
                face.load_glyph(gid, freetype.FT_LOAD_IGNORE_GLOBAL_ADVANCE_WIDTH)
            except freetype.FT_Exception:
                return {"glyph": gid}
        return self.filled(gid, face.glyph)

    def filled(self, gid, slot):
        contours = self.contours(slot.outline)
        points = [p for contour in contours for piece in contour
                  for p in zip(piece[1::2], piece[2::2])]
        row = {"glyph": gid, "advance": towards_zero(slot.metrics.horiAdvance, self.scale)}
        if points:
            xs, ys = zip(*points)
            row["bounds"] = [min(xs), min(ys), max(xs), max(ys)]
        row["contours"] = contours
        row["metrics"] = self.metrics(slot)
        return row

    def metrics(self, slot):
        names = {"width": "width", "height": "height", "hori_bearing_x": "horiBearingX",
                 "hori_bearing_y": "horiBearingY", "vert_bearing_x": "vertBearingX",
                 "vert_bearing_y": "vertBearingY", "vert_advance": "vertAdvance"}
        out = {ours: towards_zero(getattr(slot.metrics, theirs), self.scale)
               for ours, theirs in names.items()}
        box = self.face.bbox
        out["face_bounds"] = [box.xMin, box.yMin, box.xMax, box.yMax]
        out["even_odd"] = bool(slot.outline.flags & freetype.FT_OUTLINE_EVEN_ODD_FILL)
        return out

    def contours(self, outline):
        contours, scale = [], self.scale

        def add(letter):
            def take(*arguments):
                piece = [letter]
                for point in arguments[:-1]:
                    piece += [point.x / scale, point.y / scale]
                if letter == "M":
                    contours.append([])
                contours[-1].append(piece)
                return 0
            return take

        outline.decompose(None, move_to=add("M"), line_to=add("L"), conic_to=add("Q"),
                          cubic_to=add("C"))
        return contours


def same(ours, theirs):
    """Equal, but that the service's coordinates are single floats."""
    if isinstance(ours, dict) and isinstance(theirs, dict):
        return ours.keys() == theirs.keys() and all(same(ours[k], theirs[k]) for k in ours)
    if isinstance(ours, list) and isinstance(theirs, list):
        return len(ours) == len(theirs) and all(map(same, ours, theirs))
    if isinstance(ours, float) or isinstance(theirs, float):
        return abs(ours - theirs) <= 1e-6 * max(1, abs(theirs))
    return ours == theirs


class FolderTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        os.mkdir(self.path("none"))

    def path(self, name):
        return os.path.join(self.folder, name)

    def outline(self, *arguments, status=0):
        """The command over a world without fonts: each is named by its path."""
        return run(QXFONT, "outline", "--only", self.path("none"), *arguments, status=status)


class OutlineTest(FolderTest):
    def compare(self, path, index=0, theirs=None):
        """Draws a face here and there; the file of the other side is its own unless told."""
        peer = Peer(theirs or path, index if theirs is None else 0)
        every = 1 if ALL else -(-peer.face.num_glyphs // MOST)
        rows = [json.loads(line) for line in
                self.outline(path, "--face", str(index), "--all", "--every", str(every),
                             "--ndjson").splitlines()]
        self.assertGreater(len(rows), 0, path)
        wrong = [row["glyph"] for row in rows if not same(row, peer.row(row["glyph"]))]
        self.assertEqual(wrong, [], path)
        return len(rows)

    def test_every_installed_font_is_drawn_as_freetype_draws_it(self):
        drawn = {}
        for path in installed():
            with self.subTest(font=path):
                faces = freetype.Face(path).num_faces
                for index in range(faces):
                    kind = os.path.splitext(path)[1]
                    drawn[kind] = drawn.get(kind, 0) + self.compare(path, index)
        self.assertGreater(drawn[".ttf"], 1000)
        self.assertGreater(drawn[".otf"], 1000)

    def test_web_fonts_are_drawn_as_what_they_were_packed_from(self):
        for source in (DEJAVU, installed_otf()):
            font = TTFont(source)
            font.flavor = "woff"
            font.save(self.path("packed.woff"))
            font.flavor = None
            font.save(self.path("plain.otf"))
            self.compare(self.path("packed.woff"), theirs=self.path("plain.otf"))

    def test_suitcases_are_drawn_as_their_members(self):
        with open(DEJAVU, "rb") as file:
            write_dfont(self.path("fonts.dfont"), [file.read()] * 2)
        for member in (0, 1):
            self.compare(self.path("fonts.dfont"), member, theirs=DEJAVU)


def installed_otf():
    return next(path for path in installed() if path.endswith(".otf"))


def write_dfont(path, fonts):
    """A resource fork with `sfnt` resources 0, 1, ... (Inside Macintosh, Resource Manager)."""
    data, references = b"", b""
    for number, font in enumerate(fonts):
        references += number.to_bytes(2, "big") + b"\xFF\xFF\x00" + len(data).to_bytes(3, "big")
        references += bytes(4)
        data += len(font).to_bytes(4, "big") + font
    types = (0).to_bytes(2, "big") + b"sfnt" + (len(fonts) - 1).to_bytes(2, "big")
    types += (10).to_bytes(2, "big")
    lists = types + references
    head = bytes(24) + (28).to_bytes(2, "big") + (28 + len(lists)).to_bytes(2, "big")
    fork = [256, 256 + len(data), len(data), len(head) + len(lists)]
    with open(path, "wb") as out:
        out.write(b"".join(n.to_bytes(4, "big") for n in fork) + bytes(240))
        out.write(data + head + lists)


class CommandTest(FolderTest):
    def test_a_glyph_is_named_by_id_or_character(self):
        by_character = json.loads(self.outline(DEJAVU, "U+0041", "--json"))
        gid = TTFont(DEJAVU).getGlyphID("A")
        self.assertEqual(json.loads(self.outline(DEJAVU, str(gid), "--json")),
                         by_character)
        self.assertEqual(list(by_character), ["advance", "bounds", "contours"])
        self.assertEqual({piece[0] for contour in by_character["contours"] for piece in contour},
                         {"M", "L"})

    def test_a_blank_glyph_has_no_bounds(self):
        self.assertEqual(list(json.loads(self.outline(DEJAVU, "U+0020", "--json"))),
                         ["advance", "contours"])

    def test_wrong_calls_and_missing_glyphs_have_their_status(self):
        for arguments, status in ((["A"], 2), (["-1"], 2), (["U+110000"], 2), (["U+"], 2), ([], 2),
                                  (["1", "--all"], 2), (["--all", "--every", "0"], 2),
                                  (["1", "-o", self.path("a.png")], 2),
                                  (["U+4E00"], 1), (["65534"], 1), (["70000"], 1),
                                  (["1", "-o", self.path("missing/a.svg")], 6)):
            with self.subTest(arguments=arguments):
                self.outline(DEJAVU, *arguments, status=status)
        self.outline(self.path("none.ttf"), "1", status=3)
        self.assertEqual(os.listdir(self.folder), ["none"])

    def test_the_drawing_has_the_path_and_its_box(self):
        self.outline(DEJAVU, "U+0041", "-o", self.path("a.svg"))
        with open(self.path("a.svg"), encoding="utf-8") as file:
            text = file.read()
        self.assertRegex(text, r'^<svg xmlns="http://www.w3.org/2000/svg" width="\d')
        self.assertIn('<path transform="scale(1 -1)" fill-rule="nonzero" d="M', text)


class PageTest(FolderTest):
    """Pages as SVG: each glyph as it is drawn alone, in the place to which it is shaped."""

    def pages(self, source, text, size):
        """The root of the drawing, which is an XML document."""
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write(text)
        run(QXFONT, "typeset", "--only", self.path("none"), self.path("text.txt"), "--font", source,
            "--size", str(size), "-o", self.path("page.svg"))
        return ElementTree.parse(self.path("page.svg")).getroot()

    def shaped(self, source, text, size):
        """Glyphs that are not blank, with their distance from the first in points."""
        em, pen, places = TTFont(source)["head"].unitsPerEm, 0, []
        for glyph in json.loads(run(QXFONT, "shape", "--only", self.path("none"), source, text,
                                    "--script", "latn", "--json")):
            if json.loads(self.outline(source, str(glyph["g"]), "--json"))["contours"]:
                places.append((glyph["g"], (pen + glyph["dx"]) * size / em))
            pen += glyph["ax"]
        return places

    def alone(self, source, gid):
        self.outline(source, str(gid), "-o", self.path("glyph.svg"))
        return ElementTree.parse(self.path("glyph.svg")).getroot().find(f"{SVG}path").get("d")

    def test_glyphs_are_drawn_where_they_are_shaped_to(self):
        text, size = "AVA To & Co.", 20
        for source in (DEJAVU, installed_otf()):
            with self.subTest(source=source):
                root = self.pages(source, text, size)
                for path in root.iter(f"{SVG}path"):
                    gid = int(path.get("id").removeprefix("f0g"))
                    self.assertEqual(path.get("d"), self.alone(source, gid))
                uses = [(int(use.get("href").removeprefix("#f0g")),
                         *map(float, re.findall(r"[\d.]+", use.get("transform"))))
                        for use in root.iter(f"{SVG}use")]
                places = self.shaped(source, text, size)
                self.assertEqual([use[0] for use in uses], [place[0] for place in places])
                scale = size / TTFont(source)["head"].unitsPerEm
                for use, place in zip(uses, places):
                    self.assertAlmostEqual(use[1] - uses[0][1], place[1], delta=0.002)
                    self.assertEqual(use[2], uses[0][2], "one line")
                    self.assertAlmostEqual(use[3], scale, delta=1e-6)

    def test_texts_of_several_pages_are_one_drawing(self):
        root = self.pages(DEJAVU, "a\n\n" * 100, 20)
        self.assertEqual(root.tag, f"{SVG}svg")
        self.assertEqual(len(root.findall(f"{SVG}g")), len(root.findall(f"{SVG}g/{SVG}rect")))
        self.assertGreater(len(root.findall(f"{SVG}g")), 1)
        self.assertEqual(len(list(root.iter(f"{SVG}use"))), 100)


if __name__ == "__main__":
    unittest.main()
