#!/usr/bin/env python3
"""What qxfont typesets as HTML, shown by a browser, beside the same page in the source fonts.

The browser is Chromium without a window (`./dev setup browser`); nothing is fetched from anywhere.
The variable QXFONT names the program; ctest sets it.
"""

import base64
import json
import logging
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

from fontTools.ttLib import TTCollection

QXFONT = os.environ["QXFONT"]
CHROMIUM = shutil.which("chromium")
OTHER_FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Bold.ttf"

# Two styles with TrueType outlines, two with CFF, a member of a collection that is not its first,
# Arabic, and a line in both directions; each has letters that the font of the control has too.
TEXT = """AVATAR fluffy office, Žlutý жук Ωμέγα

#font Lato:700 20
To flow, affine Waffles

#font EB Garamond 22
Thirty affiliated fjords, Queen Anne

#font LM Roman 10 18
Typeset difficult flags

#font WenQuanYi Zen Hei Mono 18
Mono 中文字形 of a collection

#font IPAGothic 18
Kana ひらがな「カタカナ」

#font Amiri 20
السلام عليكم abc ورحمة الله

#font DejaVu Sans 14
Latin שלום (12 עולם) again
"""
FACES = ("DejaVuSans", "Lato-Bold", "EBGaramond08-Regular", "LMRoman10-Regular",
         "WenQuanYiZenHeiMono", "IPAGothic", "Amiri-Regular")
SHEET = ("--page", "A5")
POINT = 96 / 72  # in pixels
WINDOW = (600, 640)
SKIPPED = 77  # the status that ctest takes for it

logging.getLogger("fontTools").setLevel(logging.ERROR)


class Picture:
    """A PNG of 8 bits a sample without interlacing, as Chromium writes it, read into rows of gray
    values."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        assert data[:8] == b"\x89PNG\r\n\x1a\n"
        packed, at = b"", 8
        while at < len(data):
            length, kind = struct.unpack_from(">I4s", data, at)
            chunk = data[at + 8:at + 8 + length]
            if kind == b"IHDR":
                self.width, self.height, depth, color, _, _, interlaced = struct.unpack(
                    ">IIBBBBB", chunk)
                assert (depth, interlaced) == (8, 0) and color in (2, 6)
                self.samples = 3 if color == 2 else 4
            elif kind == b"IDAT":
                packed += chunk
            at += 12 + length
        self.rows = [self.gray(row) for row in self.unfiltered(zlib.decompress(packed))]

    def unfiltered(self, data):
        size, step = self.width * self.samples, self.samples
        above = bytearray(size)
        for start in range(0, len(data), size + 1):
            row = bytearray(data[start + 1:start + 1 + size])
            self.unfilter(data[start], row, above, step)
            yield row
            above = row

    @staticmethod
    def unfilter(kind, row, above, step):
        if kind == 0:
            return
        for i, value in enumerate(row):
            left = row[i - step] if i >= step else 0
            up, corner = above[i], above[i - step] if i >= step else 0
            if kind == 1:
                guess = left
            elif kind == 2:
                guess = up
            elif kind == 3:
                guess = (left + up) // 2
            else:
                guess = min((left, up, corner), key=lambda one: abs(left + up - corner - one))
            row[i] = (value + guess) & 0xFF

    def gray(self, row):
        step = self.samples
        return bytes((r + g + b) // 3
                     for r, g, b in zip(row[0::step], row[1::step], row[2::step]))

    def ink(self, band):
        """Pixels of a band of rows that are not paper."""
        return sum(value < 128 for row in self.rows[band] for value in row)

    def differing(self, other, band):
        """Pixels of a band that are clearly lighter or darker in another picture."""
        return sum(abs(a - b) > 64 for ours, theirs in zip(self.rows[band], other.rows[band])
                   for a, b in zip(ours, theirs))


def font_face(data):
    return f"src:url(data:font/sfnt;base64,{base64.b64encode(data).decode()})"


def source_font(file, name, scratch):
    """The bytes of the font that a face comes from; the member alone where it is in a collection."""
    if file.endswith(".ttc"):
        with TTCollection(file) as collection:
            [member] = [font for font in collection.fonts
                        if font["name"].getDebugName(6) == name]
            file = os.path.join(scratch, "member.ttf")
            member.save(file, reorderTables=None)
    with open(file, "rb") as read:
        return read.read()


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        cls.addClassCleanup(shutil.rmtree, cls.folder, ignore_errors=True)
        with open(cls.path("text.txt"), "w", encoding="utf-8") as file:
            file.write(TEXT)
        cls.summary = json.loads(cls.typeset("page.html"))
        with open(cls.path("page.html"), encoding="utf-8") as file:
            cls.html = file.read()
        cls.shown = cls.picture("page.html")

    @classmethod
    def path(cls, name):
        return os.path.join(cls.folder, name)

    @classmethod
    def typeset(cls, out):
        return subprocess.run(
            [QXFONT, "typeset", cls.path("text.txt"), "--font", "DejaVu Sans:400", *SHEET,
             "-o", cls.path(out), "--json"], capture_output=True, timeout=300, check=True).stdout

    @classmethod
    def browse(cls, page, *arguments):
        subprocess.run(
            [CHROMIUM, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
             "--disable-dev-shm-usage", "--disable-background-networking", "--no-first-run",
             "--host-resolver-rules=MAP * ~NOTFOUND", "--force-device-scale-factor=1",
             f"--user-data-dir={cls.path('profile')}", *arguments, f"file://{cls.path(page)}"],
            env={**os.environ, "HOME": cls.folder}, capture_output=True, timeout=120, check=True)

    @classmethod
    def picture(cls, page):
        png = cls.path(page + ".png")
        cls.browse(page, f"--screenshot={png}", "--window-size={},{}".format(*WINDOW))
        return Picture(png)

    def shown_with(self, name, fonts):
        """The same page with other fonts under the same names."""
        sources = iter(fonts)
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(re.sub(r"src:url\([^)]*\) format\(\"woff\"\)",
                              lambda _: font_face(next(sources)), self.html))
        self.assertIsNone(next(sources, None))
        return self.picture(name)

    def bands(self):
        """The rows of the picture that each line of the page stands on."""
        for top, size in re.findall(r"top:([\d.]+)pt;font-size:([\d.]+)pt", self.html):
            first = round((12 + float(top)) * POINT)  # below the margin above the page
            yield slice(first - 2, first + round(float(size) * POINT) + 2)

    def test_the_page_is_of_all_these_faces(self):
        self.assertEqual(tuple(font["postscript_name"] for font in self.summary["fonts"]), FACES)
        self.assertEqual({font["form"] for font in self.summary["fonts"]}, {"woff"})
        self.assertEqual(self.summary["missing"], [])
        self.assertEqual(len(list(self.bands())), len(TEXT.split("\n\n")))

    def test_the_web_fonts_look_like_their_sources(self):
        sources = [source_font(font["file"], font["postscript_name"], self.folder)
                   for font in self.summary["fonts"]]
        same = self.shown_with("sources.html", sources)
        for line, band in enumerate(self.bands()):
            with self.subTest(line=TEXT.split("\n\n")[line]):
                ink = self.shown.ink(band)
                self.assertGreater(ink, 200)
                self.assertLess(self.shown.differing(same, band), ink / 200)

    def test_another_font_under_the_same_name_is_seen(self):
        """What the comparison above would find if a web font were not used."""
        with open(OTHER_FONT, "rb") as file:
            other = self.shown_with("other.html", [file.read()] * len(FACES))
        for line, band in enumerate(self.bands()):
            with self.subTest(line=TEXT.split("\n\n")[line]):
                self.assertGreater(self.shown.differing(other, band), self.shown.ink(band) / 4)

    def test_a_page_without_its_fonts_is_seen(self):
        """The same when all fonts come from the system: no name of the page is one of theirs."""
        with open(self.path("bare.html"), "w", encoding="utf-8") as file:
            file.write(re.sub(r"@font-face\{[^}]*\}", "", self.html))
        bare = self.picture("bare.html")
        differing = [self.shown.differing(bare, band) > self.shown.ink(band) / 10
                     for band in self.bands()]
        # The browser's own choice may be one of these fonts.
        self.assertGreaterEqual(sum(differing), len(differing) - 2, differing)

    def words(self, pdf):
        """Words that are there once, with where they begin and end from the left, in points."""
        boxes = subprocess.run(["pdftotext", "-bbox", pdf, "-"], capture_output=True, check=True)
        found = re.findall(
            r'<word xMin="([\d.]+)" yMin="[\d.]+" xMax="([\d.]+)" yMax="[\d.]+">(.*?)<',
            boxes.stdout.decode("utf-8"))
        words = [word for _, _, word in found]
        return {word: (float(left), float(right)) for left, right, word in found
                if words.count(word) == 1}

    def test_lines_are_as_the_pdf_has_them(self):
        """Printed by the browser, each word stands where our own PDF has it."""
        self.typeset("ours.pdf")
        printed = self.path("printed.pdf")
        self.browse("page.html", f"--print-to-pdf={printed}", "--no-pdf-header-footer")
        ours, theirs = self.words(self.path("ours.pdf")), self.words(printed)
        # A reader of PDF may see two words in one, by the gaps: here that is seldom.
        common = ours.keys() & theirs.keys()
        self.assertGreater(len(common), len(ours) * 3 // 4, ours.keys() ^ theirs.keys())
        for word in common:
            with self.subTest(word=word):
                self.assertAlmostEqual(ours[word][0], theirs[word][0], delta=0.5)
                self.assertAlmostEqual(ours[word][1], theirs[word][1], delta=0.5)

    def test_the_browser_uses_each_of_the_fonts(self):
        printed = self.path("fonts.pdf")
        self.browse("page.html", f"--print-to-pdf={printed}")
        fonts = subprocess.run(["pdffonts", printed], capture_output=True, check=True)
        names = {line.split()[0].split("+")[-1] for line in fonts.stdout.decode().split("\n")[2:-1]}
        # The printer makes Type 3 fonts, which have no names, of those with CFF.
        self.assertEqual(names, {*FACES, "[none]"} - {"EBGaramond08-Regular", "LMRoman10-Regular"})


if __name__ == "__main__":
    if CHROMIUM is None:
        print("there is no chromium: ./dev setup browser installs it")
        sys.exit(SKIPPED)
    unittest.main()
