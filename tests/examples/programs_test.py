#!/usr/bin/env python3
"""Runs the built programs of examples/ over installed fonts and reads what they write.

The variable EXAMPLES names their folder; ctest sets it.
"""

import io
import logging
import os
import re
import shutil
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

from fontTools.cffLib import CFFFontSet
from fontTools.t1Lib import T1Font
from fontTools.ttLib import TTFont

EXAMPLES = os.environ["EXAMPLES"]
logging.getLogger("fontTools").setLevel(logging.ERROR)
HERE = os.path.dirname(os.path.abspath(__file__))
CONFIGURATION = os.path.join(HERE, "..", "..", "examples", "font-config.xml")

DEJAVU = "/usr/share/fonts/truetype/dejavu"
DEJAVU_SANS = f"{DEJAVU}/DejaVuSans.ttf"
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
GARAMOND = "EB Garamond"
C059 = "/usr/share/fonts/opentype/urw-base35/C059-Roman.otf"
TYPE1 = "/usr/share/fonts/X11/Type1"


class ExampleTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="examples-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def run_program(self, name, *arguments, status=0, **environment):
        done = subprocess.run(
            [os.path.join(EXAMPLES, name), *arguments], cwd=self.folder, capture_output=True,
            env={**os.environ, **environment}, timeout=300, check=False, encoding="utf-8")
        self.assertEqual(done.returncode, status, f"{name} {arguments}\n{done.stderr}")
        return done

    def lines(self, name, *arguments, **more):
        return self.run_program(name, *arguments, **more).stdout.splitlines()

    def web_font(self, source):
        font = TTFont(source)
        font.flavor = "woff"
        font.save(self.path("document.woff"))
        return self.path("document.woff")


class OpenServiceTest(ExampleTest):
    def test_the_systems_fonts_are_found(self):
        lines = self.lines("open_service")
        self.assertEqual(lines[0], "the system's fonts")
        self.assertTrue(any(line.startswith(DEJAVU + "/: ") for line in lines), lines)
        self.assertGreater(int(re.fullmatch(r"(\d+) faces", lines[-1])[1]), 20)

    def test_a_configuration_names_the_folders(self):
        done = self.run_program("open_service", "FONTS", FONTS=CONFIGURATION)
        lines = done.stdout.splitlines()
        self.assertEqual(os.path.realpath(lines[0]), os.path.realpath(CONFIGURATION))
        folders = [line.split(": ")[0] for line in lines[1:-1]]
        self.assertEqual(folders[:3], [DEJAVU + "/", "/usr/share/fonts/opentype/ipafont-gothic/",
                                       TYPE1 + "/"])
        files = [name for name in os.listdir(DEJAVU) if name.endswith(".ttf")]
        self.assertEqual(lines[1], f"{DEJAVU}/: {len(files) - 1} files", "one is excluded")

    def test_a_bad_configuration_is_refused_with_its_text(self):
        with open(self.path("bad.xml"), "w", encoding="utf-8") as file:
            file.write("<font-config><font/></font-config>")
        done = self.run_program("open_service", "FONTS", status=5, FONTS=self.path("bad.xml"))
        self.assertEqual(done.stderr,
                         f"1028: Unexpected start tag: <font> in {self.path('bad.xml')}\n")

    def test_a_bad_value_is_collected(self):
        with open(self.path("value.xml"), "w", encoding="utf-8") as file:
            file.write(f'<font-config otf-metrics-mode="x"><font-folder path="{DEJAVU}"/>'
                       '</font-config>')
        done = self.run_program("open_service", "FONTS", FONTS=self.path("value.xml"))
        self.assertTrue(done.stderr.startswith("1936: Invalid value: "), done.stderr)


class FindFaceTest(ExampleTest):
    def test_a_style_that_is_there_is_taken(self):
        lines = self.lines("find_face", "DejaVu Sans", "700")
        self.assertIn("DejaVu Sans Bold, 700", lines)
        self.assertIn(f"{DEJAVU}/DejaVuSans-Bold.ttf, face 0", lines)
        self.assertNotIn("no face has this style", lines)

    def test_a_gap_is_filled_and_explained(self):
        lines = self.lines("find_face", "DejaVu Sans", "600")
        self.assertIn("DejaVu Sans Bold, 700", lines)
        self.assertIn("no face has this style", lines)
        self.assertIn("600 -> 700", lines)

    def test_all_kinds_of_names_find(self):
        for name in ("DejaVu Sans", "dejavu-sans", "DejaVuSans.ttf", "DejaVuSans"):
            self.assertIn(f"{DEJAVU_SANS}, face 0", self.lines("find_face", name), name)
        for name in ("DejaVu Sans Mono Bold", "DejaVuSansMono-Bold"):
            self.assertIn(f"{DEJAVU}/DejaVuSansMono-Bold.ttf, face 0",
                          self.lines("find_face", name, "700"), name)

    def test_what_is_not_there_is_told(self):
        done = self.run_program("find_face", "No such family", status=1)
        self.assertEqual((done.stdout, done.stderr), ("0 faces\n", "no such font\n"))


class DocumentFontsTest(ExampleTest):
    def test_a_documents_font_goes_before_the_services(self):
        lines = self.lines("document_fonts", self.web_font(LATO), "DejaVu Sans", "AB")
        self.assertEqual(lines[0], "the document's DejaVu Sans")
        font = TTFont(LATO)
        widths = [font["hmtx"][name][0] for name in "AB"]
        expected = 1000 * sum(widths) / font["head"].unitsPerEm
        self.assertAlmostEqual(float(lines[1].split()[0]), expected, 2)

    def test_a_file_that_is_no_font_is_told(self):
        with open(self.path("bad.woff"), "wb") as file:
            file.write(b"wOFF" + bytes(100))
        done = self.run_program("document_fonts", self.path("bad.woff"), "F", "A", status=4)
        self.assertTrue(done.stderr)


class TextTest(ExampleTest):
    def test_glyphs_and_widths_are_those_of_the_font(self):
        lines = self.lines("text_to_glyphs", "Lato", "AT")
        font = TTFont(LATO)
        ids = [font.getGlyphID(font.getBestCmap()[ord(c)]) for c in "AT"]
        self.assertEqual([int(line.split()[1]) for line in lines[:2]], ids)
        kern = font["kern"].kernTables[0].kernTable.get(("A", "T"), 0)
        advance = 1000 * (font["hmtx"]["A"][0] + kern) / font["head"].unitsPerEm
        self.assertLess(kern, 0)
        self.assertAlmostEqual(float(lines[1].split()[3]), advance, 1)

    def test_a_missing_character_is_told_and_shown_as_notdef(self):
        lines = self.lines("text_to_glyphs", "Lato", "A名")
        self.assertEqual(lines[0], "no glyph for the character at 1")
        self.assertTrue(lines[2].startswith("glyph 0 at "))

    def test_vertical_text_has_its_own_brackets(self):
        plain = self.lines("text_to_glyphs", "IPAGothic", "「名")
        vertical = self.lines("text_to_glyphs", "IPAGothic", "「名", "vertical")
        self.assertNotEqual(plain[0], vertical[0])
        self.assertEqual(plain[1], vertical[1])

    def test_a_selector_chooses_the_glyph(self):
        lines = self.lines("text_to_glyphs", "DejaVu Sans", "\u2600\ufe0e")
        font = TTFont(DEJAVU_SANS)
        glyph = font.getGlyphID(font.getBestCmap()[0x2600])
        self.assertEqual(lines[-1], f"with its selector {glyph}")

    def shaped(self, family, file, script, text):
        options = ["--no-clusters", "--no-glyph-names", f"--script={script}",
                   "--shapers=ot", f"--text={text}", file]
        done = subprocess.run(["hb-shape", *options], capture_output=True, check=True,
                              encoding="utf-8")
        x = 0
        expected = []
        for glyph in done.stdout.strip()[1:-1].split("|"):
            parts = re.fullmatch(r"(\d+)(?:@(-?\d+),(-?\d+))?\+(-?\d+)", glyph)
            dx, dy = int(parts[2] or 0), int(parts[3] or 0)
            expected.append(f"{parts[1]} at {x + dx},{dy}")
            x += int(parts[4])
        self.assertEqual(self.lines("shape_text", family, script, text),
                         expected + [f"in all {x}"])

    def test_latin_text_is_shaped_as_elsewhere(self):
        self.shaped("DejaVu Sans", DEJAVU_SANS, "latn", "office AVAT")
        garamond = self.lines("find_face", GARAMOND)[-1]
        file = next(line for line in self.lines("find_face", GARAMOND) if ", face " in line)
        self.assertTrue(garamond)
        self.shaped(GARAMOND, file.split(", face ")[0], "latn", "office AVAT Typhoon")


class EmbedTest(ExampleTest):
    def test_a_family_gives_its_subset(self):
        self.run_program("embed_family", "Lato", "Hello", self.path("out.ttf"))
        font = TTFont(self.path("out.ttf"), lazy=False)
        source = TTFont(LATO)
        self.assertEqual(font["maxp"].numGlyphs, source["maxp"].numGlyphs)
        shown = {source.getGlyphID(source.getBestCmap()[ord(c)]) for c in "Hello"}
        order = source.getGlyphOrder()
        for gid in range(font["maxp"].numGlyphs):
            name = font.getGlyphName(gid)
            has_outline = font["glyf"][name].numberOfContours != 0
            wanted = gid in shown or gid == 0
            if wanted or has_outline:
                self.assertTrue(wanted, gid)
                self.assertEqual(font["glyf"][name].numberOfContours,
                                 source["glyf"][order[gid]].numberOfContours)

    def test_forms_of_true_type(self):
        lines = self.lines("embed_forms", LATO, "Hello", self.folder)
        for name in ("subset.ttf", "subset.woff"):
            subprocess.run(["ots-sanitize", self.path(name)], check=True, capture_output=True)
            self.assertEqual(TTFont(self.path(name))["name"].getDebugName(1), "Lato")
        font = TTFont(LATO)
        gid = font.getGlyphID("H")
        self.assertIn(f"glyph {gid} is {gid}, width {font['hmtx']['H'][0]}", lines)
        self.assertIn("glyf", TTFont(self.path("pdf.ttf")))

    def test_forms_of_cff(self):
        lines = self.lines("embed_forms", C059, "Hello", self.folder)
        subprocess.run(["ots-sanitize", self.path("subset.ttf")], check=True, capture_output=True)
        fonts = CFFFontSet()
        fonts.decompile(io.BytesIO(self.read("pdf.cff")), None)
        self.assertEqual(fonts[0].getGlyphOrder(), [".notdef", "H", "e", "l", "o"])
        self.assertIn(f"glyph {TTFont(C059).getGlyphID('H')} is 1", "\n".join(lines))

    def test_forms_of_type1(self):
        lines = self.lines("embed_forms", f"{TYPE1}/c0419bt_.afm", "Hello", self.folder)
        names = [line.split(" is ")[1] for line in lines if line.startswith("code ")]
        self.assertEqual(names, ["H", "e", "l", "l", "o"])
        font = T1Font(self.path("subset.pfb"), kind="PFB")
        font.parse()
        self.assertEqual(set(font["CharStrings"]), {".notdef", "H", "e", "l", "o"})
        self.assertTrue(self.read("pdf.t1").startswith(b"%!"))

    def test_a_font_that_may_not_be_embedded_is_refused(self):
        font = TTFont(LATO)
        font["OS/2"].fsType = 2
        font.save(self.path("restricted.ttf"))
        self.lines("embed_forms", self.path("restricted.ttf"), "A", self.folder, status=4)
        self.assertEqual(os.listdir(self.folder), ["restricted.ttf"])


class PdfTest(ExampleTest):
    TEXT = "Hello, Wörld: \U0001d49c office"

    def test_the_page_is_sound_and_its_text_can_be_copied(self):
        self.run_program("one_page_pdf", "DejaVu Sans", self.TEXT, self.path("a.pdf"))
        checked = subprocess.run(["qpdf", "--check", self.path("a.pdf")], capture_output=True,
                                 check=True, encoding="utf-8")
        self.assertNotIn("WARNING", checked.stdout + checked.stderr)
        text = subprocess.run(["pdftotext", self.path("a.pdf"), "-"], capture_output=True,
                              check=True, encoding="utf-8")
        self.assertEqual(text.stdout.strip(), self.TEXT)
        self.assertEqual(text.stderr, "")

    def test_the_font_is_a_subset_and_embedded(self):
        self.run_program("one_page_pdf", "DejaVu Sans", self.TEXT, self.path("a.pdf"))
        fonts = subprocess.run(["pdffonts", self.path("a.pdf")], capture_output=True, check=True,
                               encoding="utf-8").stdout
        self.assertRegex(fonts, r"ABCDEF\+DejaVuSans +CID TrueType +Identity-H +yes yes yes")
        self.assertLess(os.path.getsize(self.path("a.pdf")), os.path.getsize(DEJAVU_SANS) // 4)

    def test_the_same_call_gives_the_same_bytes(self):
        for name in ("a.pdf", "b.pdf"):
            self.run_program("one_page_pdf", "Lato", "Same", self.path(name))
        self.assertEqual(self.read("a.pdf"), self.read("b.pdf"))

    def test_a_font_with_cff_wants_another_form(self):
        self.run_program("one_page_pdf", "C059", "A", self.path("a.pdf"), status=3)
        self.assertEqual(os.listdir(self.folder), [])


class OutlineTest(ExampleTest):
    def test_the_picture_has_the_contours_of_the_glyph(self):
        svg = ElementTree.fromstring(self.run_program("outline_to_svg", "Lato", "B").stdout)
        path = svg.find("{http://www.w3.org/2000/svg}path")
        self.assertEqual(path.get("d").count("M"), TTFont(LATO)["glyf"]["B"].numberOfContours)
        self.assertEqual(path.get("fill-rule"), "nonzero")
        width = float(svg.get("viewBox").split()[2])
        self.assertAlmostEqual(width, TTFont(LATO)["hmtx"]["B"][0], delta=1)

    def test_a_character_without_a_glyph_is_refused(self):
        self.run_program("outline_to_svg", "Lato", "名", status=3)


class UntrustedFontTest(ExampleTest):
    def test_a_collection_tells_its_faces(self):
        lines = self.lines("untrusted_font", "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc")
        self.assertRegex(lines[0], r"^WenQuanYi Zen Hei: 3 faces, \d+ glyphs$")

    def test_what_is_no_font_is_refused_with_a_reason(self):
        with open(self.path("bad.ttf"), "wb") as file:
            file.write(b"not a font at all")
        done = self.run_program("untrusted_font", self.path("bad.ttf"), status=3)
        self.assertRegex(done.stderr, r"^19\d\d: .+\n")

    def test_a_font_cut_anywhere_gives_an_answer(self):
        with open(LATO, "rb") as file:
            whole = file.read()
        for part in range(0, 10):
            with open(self.path("cut.ttf"), "wb") as file:
                file.write(whole[:len(whole) * part // 10])
            done = subprocess.run([os.path.join(EXAMPLES, "untrusted_font"), self.path("cut.ttf")],
                                  capture_output=True, timeout=60, check=False)
            self.assertIn(done.returncode, (0, 3), part)


if __name__ == "__main__":
    unittest.main()
