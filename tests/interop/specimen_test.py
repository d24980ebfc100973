#!/usr/bin/env python3
"""Sheets that qxfont makes of fonts, looked at by other software: poppler and qpdf read the PDF,
Python's parsers the HTML and the SVG.

The variable QXFONT names the program; ctest sets it.
"""

import html.parser
import json
import logging
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

from fontTools import subset
from fontTools.ttLib import TTCollection, TTFont

QXFONT = os.environ["QXFONT"]
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
LATO_BOLD = "/usr/share/fonts/truetype/lato/Lato-Bold.ttf"
MONO = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"
GARAMOND = "/usr/share/fonts/opentype/ebgaramond/EBGaramond12-Regular.otf"
AMIRI = "/usr/share/fonts/opentype/fonts-hosny-amiri/Amiri-Regular.ttf"
SYMBOLS = "/usr/share/fonts/truetype/font-awesome/fontawesome-webfont.ttf"
IPA = "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"
TYPE1 = "/usr/share/fonts/X11/Type1/NimbusSans-Regular.pfb"
TYPE1_METRICS = "/usr/share/fonts/type1/urw-base35/NimbusSans-Regular.afm"

ARABIC = "نص حكيم له سر قاطع وذو شأن عظيم"
SENTENCE = "Sphinx of black quartz, judge my vow."
SHEET = (595.276, 841.89)  # A4, in points
KEYS = ["pages", "fonts", "missing"]
FONT_KEYS = ["family", "postscript_name", "file", "form", "glyphs", "bytes"]
DONE, NO_MATCH, WRONG_CALL, BAD_FONT, NOT_ALLOWED, _, NOT_WRITTEN = range(7)

logging.getLogger("fontTools").setLevel(logging.ERROR)


def environment():
    return {k: v for k, v in os.environ.items() if k not in ("QXFONT_CONFIG", "SOURCE_DATE_EPOCH")}


def output_of(*command):
    return subprocess.run(command, capture_output=True, check=True).stdout.decode("utf-8")


def plain(text):
    return " ".join(text.split())


LATIN = "".join(chr(code) for code in (*range(0x20, 0x7F), *range(0xA0, 0x100)))


def small_font(target, letters, source=LATO):
    """A font of a few characters, which is quick to read and to write."""
    options = subset.Options(layout_features=["*"], name_IDs=["*"], font_number=0)
    font = subset.load_font(source, options)
    cutter = subset.Subsetter(options)
    cutter.populate(text=letters)
    cutter.subset(font)
    font.save(target)
    return target


class SpecimenTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.fonts = self.path("fonts")
        os.mkdir(self.fonts)

    def path(self, name):
        return os.path.join(self.folder, name)

    def copy(self, *files):
        """Fonts in a folder of their own, which is all that the service knows."""
        for file in files:
            shutil.copy(file, self.fonts)
        return os.path.join(self.fonts, os.path.basename(files[0]))

    def small(self, source=LATO, letters=LATIN):
        """The same with few of its characters, under its own names."""
        return small_font(os.path.join(self.fonts, os.path.basename(source)), letters, source)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def specimen(self, *arguments, out="out.pdf", status=DONE):
        done = subprocess.run([QXFONT, "specimen", *arguments, "-o", out, "--json", "--only",
                               self.fonts], env=environment(), cwd=self.folder,
                              capture_output=True, timeout=120, check=False)
        self.assertEqual(done.returncode, status, f"{arguments}\n{done.stderr.decode()}")
        self.said = done.stderr.decode("utf-8")
        if status == DONE:
            return json.loads(done.stdout.decode("utf-8"))
        self.assertEqual(done.stdout, b"")
        self.assertRegex(self.said, r"^qxfont: [^\n]+\n(hint: [^\n]+\n)?$")
        self.assertFalse(os.path.exists(self.path(out)))
        self.assertEqual([n for n in os.listdir(self.folder) if ".part" in n], [])
        return None

    def text(self, *options):
        return plain(output_of("pdftotext", *options, self.path("out.pdf"), "-"))

    def assert_sound(self, summary):
        """A PDF that readers take, each of whose fonts is there as a subset with its characters."""
        subprocess.run(["qpdf", "--check", self.path("out.pdf")], check=True, capture_output=True)
        self.assertEqual(list(summary), KEYS)
        self.assertGreater(summary["pages"], 0)
        rows = output_of("pdffonts", self.path("out.pdf")).split("\n")[2:]
        found = [re.match(r"(\S+) +.*? +\S+ +(yes|no) +(yes|no) +(yes|no) ", row) for row in rows]
        found = [match.groups() for match in found if match]
        self.assertEqual(len(found), len(summary["fonts"]))
        for name, *flags in found:
            self.assertRegex(name, r"^[A-Z]{6}\+")
            self.assertEqual(flags, ["yes"] * 3, name)
        pages = re.search(r"Pages: +(\d+)", output_of("pdfinfo", self.path("out.pdf"))).group(1)
        self.assertEqual(int(pages), summary["pages"])
        for font in summary["fonts"]:
            self.assertEqual(list(font), FONT_KEYS)
            self.assertGreater(font["bytes"], 0)

    def assert_inside(self):
        """No word stands beyond the margins."""
        boxes = output_of("pdftotext", "-bbox", self.path("out.pdf"), "-")
        words = re.findall(r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" '
                           r'yMax="([-\d.]+)">(.*?)</word>', boxes)
        self.assertGreater(len(words), 50)
        for left, top, right, bottom, word in words:
            place = (word, left, top, right, bottom)
            self.assertGreater(float(left), 20, place)
            self.assertLess(float(right), SHEET[0] - 20, place)
            # The boxes are as tall as the fonts say, not as their letters are.
            self.assertGreater(float(top) + float(bottom), 2 * 20, place)
            self.assertLess(float(top) + float(bottom), 2 * (SHEET[1] - 20), place)


class SheetTest(SpecimenTest):
    def test_a_family(self):
        self.small()
        self.small(LATO_BOLD)
        summary = self.specimen("Lato")
        self.assert_sound(summary)
        self.assert_inside()
        self.assertEqual(summary["missing"], [])
        self.assertEqual([font["postscript_name"] for font in summary["fonts"]],
                         ["Lato-Regular", "Lato-Bold"])
        text = self.text()
        for wanted in (SENTENCE, "Lato Bold", "in the main pool, family table, as 'LATO'",
                       "exact: weight, slant and width as asked", "Basic Latin", "Embedded forms",
                       "400", "700"):
            self.assertIn(wanted, text)

    def test_a_face_of_the_family(self):
        self.small()
        self.small(LATO_BOLD)
        summary = self.specimen("Lato", "--weight", "700")
        self.assertEqual(summary["fonts"][0]["postscript_name"], "Lato-Bold")
        self.assertIn("asked for Lato, weight 700", self.text("-layout"))
        self.assertIn("filled", self.specimen("Lato", "--weight", "300") and self.text())

    def test_who_lost_the_name(self):
        shutil.copy(self.small(), os.path.join(self.fonts, "twin.ttf"))
        self.specimen("Lato")
        self.assertIn("has the same name and style", self.text())

    def test_sizes_are_those_of_embed(self):
        font = self.small(MONO)
        self.specimen(font)
        text = self.text("-layout")
        with TTFont(font) as source:
            codes = ",".join(f"U+{code:04X}" for code in source.getBestCmap())
        for form in ("sfnt", "woff"):
            sizes = []
            for choice in (["--text", SENTENCE], ["--unicodes", codes]):
                subprocess.run([QXFONT, "embed", font, "--form", form, *choice, "-o", "embedded",
                                "--only", self.fonts], env=environment(), cwd=self.folder,
                               check=True, capture_output=True)
                sizes.append(f"{os.path.getsize(self.path('embedded')):,}")
            self.assertRegex(text, rf"{form} .*{sizes[0]} +{sizes[1]}")

    def test_features_are_listed_and_shown(self):
        self.specimen(self.small(GARAMOND))
        text = self.text("-layout")
        self.assertRegex(text, r"smcp +Small Capitals +Small Capitals")
        self.assertRegex(text, r"onum|lnum")
        self.assertRegex(text, r"GPOS .*kern")
        # Ligatures are one glyph for several characters, and are copied as those.
        self.assertRegex(text, r"liga +.*(office|first).* +.*(office|first)")

    def test_the_chart_says_how_many_more_there_are(self):
        ideographs = "".join(map(chr, range(0x4E00, 0x4E00 + 1500)))
        font = self.small(IPA, LATIN + ideographs)
        summary = self.specimen(font)
        self.assert_sound(summary)
        text = self.text("-layout")
        with TTFont(font) as source:
            unified = sum(0x4E00 <= code <= 0x9FFF for code in source.getBestCmap())
        self.assertGreater(unified, 500)
        self.assertIn(f"CJK Unified Ideographs {unified:,}", text)
        self.assertIn(f"the first 128 are shown, {unified - 128:,} more are in the font", text)

    def test_the_sheet_says_how_many_blocks_are_shown(self):
        self.specimen(self.small(MONO, LATIN + "āƀɐʰΑА←∀─■"))
        self.assertIn("8 of the 12 blocks are shown", self.text())

    def test_several_fonts(self):
        first = self.small()
        self.small(MONO)
        summary = self.specimen(first, "DejaVu Sans Mono")
        self.assert_sound(summary)
        pages = output_of("pdftotext", self.path("out.pdf"), "-").split("\f")
        self.assertIn("Lato", pages[0])
        self.assertEqual(sum("full name" in page for page in pages), 2)
        self.assertIn("DejaVu Sans Mono", plain("".join(pages)))

    def test_two_runs_give_the_same_bytes(self):
        font = small_font(os.path.join(self.fonts, "small.ttf"), SENTENCE + "0123456789")
        for kind in ("pdf", "html", "svg"):
            written = []
            for _ in range(2):
                self.specimen(font, out=f"out.{kind}")
                written.append(self.read(f"out.{kind}"))
            self.assertEqual(written[0], written[1], kind)


class KindTest(SpecimenTest):
    """Fonts of every kind that the service reads."""

    def sheet(self, *arguments):
        summary = self.specimen(*arguments)
        self.assert_sound(summary)
        self.assert_inside()
        return summary

    def test_a_member_of_a_collection(self):
        collection = TTCollection()
        collection.fonts = [TTFont(self.small()), TTFont(self.small(MONO))]
        path = self.path("two.ttc")
        collection.save(path)
        for face, name in ((0, "Lato-Regular"), (1, "DejaVuSansMono")):
            summary = self.sheet(path, "--face", str(face))
            self.assertEqual([font["postscript_name"] for font in summary["fonts"]], [name])
        self.assertIn("two.ttc, face 1", self.text())

    def test_type_1(self):
        font = self.copy(TYPE1_METRICS, TYPE1)
        summary = self.sheet(font)
        self.assertEqual({font["form"] for font in summary["fonts"]}, {"type1"})
        self.assertIn(SENTENCE, self.text())
        self.assertRegex(self.text("-layout"), r"kern +AVATAR")
        self.specimen(font, out="out.html", status=WRONG_CALL)

    def test_type_1_is_drawn_by_its_own_glyphs(self):
        """Pages know its glyphs by codes, of which there are several pages."""
        font = self.copy(TYPE1_METRICS, TYPE1)
        self.specimen(font, out="out.svg")
        drawn = self.read("out.svg").decode("utf-8")
        for character in "Sxβж":
            subprocess.run([QXFONT, "outline", font, f"U+{ord(character):04X}", "-o", "glyph.svg",
                            "--only", self.fonts], env=environment(), cwd=self.folder, check=True,
                           capture_output=True)
            path = re.search(r' d="([^"]+)"', self.read("glyph.svg").decode("utf-8")).group(1)
            self.assertIn(f'd="{path}"', drawn, character)

    def test_cff(self):
        summary = self.sheet(self.small(GARAMOND))
        self.assertEqual(summary["fonts"][0]["form"], "cff")
        self.assertIn("cid-ps", self.text())

    def test_a_web_font(self):
        with TTFont(self.small()) as font:
            font.flavor = "woff"
            font.save(os.path.join(self.fonts, "lato.woff"))
        self.sheet(os.path.join(self.fonts, "lato.woff"))
        self.assertIn(SENTENCE, self.text())

    def test_arabic_is_joined_and_runs_from_right_to_left(self):
        self.sheet(self.small(AMIRI, LATIN + ARABIC))
        # Readers take the letters of a ligature from right to left or from left to right.
        lines = output_of("pdftotext", "-layout", self.path("out.pdf"), "-").split("\n")
        letters = [sorted(re.sub("[^\u0600-\u06FF]", "", line)) for line in lines]
        self.assertIn(sorted(ARABIC.replace(" ", "")), letters)
        self.assertRegex("\n".join(lines), "(?s)init.*Initial forms")

    def test_symbols_are_labelled_in_another_face(self):
        self.small()
        summary = self.sheet(self.copy(SYMBOLS))
        self.assertEqual(summary["missing"], [])
        self.assertIn("Lato-Regular", [font["postscript_name"] for font in summary["fonts"]])
        self.assertIn("Private Use Area", self.text())

    def test_labels_that_no_font_can_set_are_missing(self):
        font = self.copy(SYMBOLS)
        summary = self.specimen(font)
        self.assertIn("U+0046", summary["missing"])
        self.assertIn("hint: ", self.said)
        subprocess.run(["qpdf", "--check", self.path("out.pdf")], check=True, capture_output=True)

    def test_a_font_without_characters(self):
        font = self.small()
        with TTFont(font) as empty:
            for table in empty["cmap"].tables:
                table.cmap = {}
            empty.save(os.path.join(self.fonts, "empty.ttf"))
        os.remove(font)
        summary = self.specimen(os.path.join(self.fonts, "empty.ttf"))
        self.assertEqual(list(summary), KEYS)


class TagsOf(html.parser.HTMLParser):
    """Counts what is open, and keeps the text."""

    VOID = ("meta",)

    def __init__(self, text):
        super().__init__()
        self.open, self.pages, self.text, self.references = [], 0, [], []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.references += [value for name, value in attrs if name in ("href", "src")]
        self.pages += tag == "section"
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if self.open.pop() != tag:
            raise ValueError(f"</{tag}> closes nothing")

    def handle_data(self, data):
        self.text.append(data)


class DocumentTest(SpecimenTest):
    def test_html(self):
        summary = self.specimen(self.small(), out="out.html")
        self.assertEqual(list(summary), KEYS)
        self.assertEqual([font["form"] for font in summary["fonts"]], ["woff"])
        text = self.read("out.html").decode("utf-8")
        parsed = TagsOf(text)
        self.assertEqual(parsed.open, [])
        self.assertEqual(parsed.references, [])
        self.assertEqual(parsed.pages, summary["pages"])
        shown = plain("".join(parsed.text))
        self.assertIn(SENTENCE, shown)
        self.assertIn("Basic Latin", shown)
        self.assertIn("font-feature-settings:'kern' off", text)

    def test_svg(self):
        summary = self.specimen(self.small(), out="out.svg")
        self.assertEqual([font["form"] for font in summary["fonts"]], ["outlines"])
        root = ElementTree.fromstring(self.read("out.svg"))
        space = "{http://www.w3.org/2000/svg}"
        defined = {path.get("id") for path in root.iter(space + "path")}
        used = {use.get("href")[1:] for use in root.iter(space + "use")}
        self.assertEqual(used, defined)
        self.assertGreater(len(used), 100)
        self.assertEqual(len(root.findall(space + "g")), summary["pages"])


class StatusTest(SpecimenTest):
    def test_a_name_that_no_font_has(self):
        self.small()
        self.specimen("Latoo", status=NO_MATCH)
        self.assertIn("'Latoo'", self.said)
        self.specimen("Lato", "Nope", status=NO_MATCH)

    def test_wrong_calls(self):
        font = self.small()
        self.specimen(status=WRONG_CALL)
        self.specimen("", status=WRONG_CALL)
        self.specimen(font, out="out.ps", status=WRONG_CALL)
        self.specimen(font, out="out", status=WRONG_CALL)
        self.specimen("Lato", "--face", "1", status=WRONG_CALL)
        self.specimen(font, "--weight", "0", status=WRONG_CALL)

    def test_a_font_that_is_not_there_or_damaged(self):
        self.specimen("/no/such.ttf", status=BAD_FONT)
        with open(self.path("text.ttf"), "w", encoding="ascii") as file:
            file.write("this is no font, whatever its name says")
        self.specimen("./text.ttf", status=BAD_FONT)

    def test_a_font_that_is_cut_anywhere(self):
        """It is read as far as it can be used, or refused; never a crash."""
        whole = small_font(self.path("whole.ttf"), "SPHINXsphinx .,")
        with open(whole, "rb") as file:
            data = file.read()
        refused = 0
        for part in range(1, 9):
            with open(self.path("cut.ttf"), "wb") as file:
                file.write(data[:len(data) * part // 9])
            done = subprocess.run([QXFONT, "specimen", "./cut.ttf", "-o", "out.pdf", "--only",
                                   self.fonts], env=environment(), cwd=self.folder,
                                  capture_output=True, timeout=120, check=False)
            self.assertIn(done.returncode, (DONE, WRONG_CALL, BAD_FONT), done.stderr)
            self.assertEqual(os.path.exists(self.path("out.pdf")), done.returncode == DONE)
            refused += done.returncode == BAD_FONT
            if done.returncode == DONE:
                os.remove(self.path("out.pdf"))
        self.assertGreater(refused, 0)

    def test_rights(self):
        locked = small_font(os.path.join(self.fonts, "locked.ttf"), SENTENCE)
        with TTFont(locked) as font:
            font["OS/2"].fsType = 2
            font.save(locked)
        self.specimen(locked, status=NOT_ALLOWED)
        self.specimen(locked, out="/no/such/out.pdf", status=NOT_ALLOWED)
        self.specimen(locked, "--allow-restricted")

    def test_output_that_cannot_be_written(self):
        font = small_font(os.path.join(self.fonts, "small.ttf"), SENTENCE)
        self.specimen(font, out="/no/such/out.pdf", status=NOT_WRITTEN)

    def test_help_names_the_options(self):
        shown = output_of(QXFONT, "specimen", "--help")
        for option in ("FONT", "--output", "--weight", "--face", "--allow-restricted", "--only"):
            self.assertIn(option, shown)


if __name__ == "__main__":
    unittest.main()
