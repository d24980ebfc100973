#!/usr/bin/env python3
"""Reads and embeds Type 1 fonts of three makers and lays what qxfont tells beside their files.

Metric files are read again here; t1utils takes programs apart, FreeType draws their glyphs, poppler
and Ghostscript show the documents, FontForge writes PFM files. The variable QXFONT names the
program; ctest sets it.
"""

import ctypes
import functools
import glob
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest

from fontTools.agl import AGL2UV
from fontTools.encodings.StandardEncoding import StandardEncoding

from cff_test import LIBRARY, FreeTypeFace, by_ghostscript, by_poppler, read, run

QXFONT = os.environ["QXFONT"]
URW = "/usr/share/fonts/type1/urw-base35"
LATIN_MODERN = "/usr/share/texmf/fonts/afm/public/lm"
X11 = "/usr/share/fonts/X11/Type1"
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"

LATIN = "Hamburgefonstiv 0123456789 ÄÅÇÉÑÖßàæéøü “quoted” (AV) To. QR&§"
WRONG_CALL, BAD_FONT = 2, 3


# --- The fonts, each metric file with its program beside it --------------------------------------

STAGED = tempfile.TemporaryDirectory(prefix="qxfont-type1-")


@functools.lru_cache(maxsize=None)
def staged():
    """The metric files, in one folder."""
    for source in (URW, LATIN_MODERN, X11):
        for metrics in glob.glob(f"{source}/*.afm"):
            name = os.path.basename(metrics)
            program = os.path.join(X11, name[:-4] + ".pfb")
            if os.path.exists(program) and not os.path.exists(os.path.join(STAGED.name, name)):
                shutil.copy(metrics, STAGED.name)
                shutil.copy(program, STAGED.name)
    return sorted(glob.glob(f"{STAGED.name}/*.afm"))


def font(name):
    staged()
    return os.path.join(STAGED.name, name + ".afm")


ROMAN, SANS, SYMBOL, MODERN, CHARTER = (
    "NimbusRoman-Regular", "NimbusSans-Bold", "StandardSymbolsPS", "lmr10", "c0648bt_")
SOME = (ROMAN, MODERN, CHARTER)


# The fonts of the machine are no part of these answers, and take their time.
with open(os.path.join(STAGED.name, "font-config.xml"), "w", encoding="ascii") as nothing:
    os.mkdir(os.path.join(STAGED.name, "empty"))
    nothing.write('<font-config windows-registry="disable"><font-folder path="'
                  f'{STAGED.name}/empty"/></font-config>')
os.environ["QXFONT_CONFIG"] = nothing.name


def program_of(metrics):
    return os.path.splitext(metrics)[0] + ".pfb"


class Afm:
    """What an Adobe Font Metrics file says."""

    def __init__(self, path):
        with open(path, encoding="latin-1") as file:
            lines = file.read().splitlines()
        self.values = {}
        self.widths, self.pairs = {}, {}
        for line in lines:
            key, _, value = line.partition(" ")
            if key == "C":
                parts = {part.split()[0]: part.split()[1:] for part in value.split(";")[1:]
                         if part.strip()}
                self.widths.setdefault(parts["N"][0], int(float(parts["WX"][0])))
            elif key == "KPX":
                left, right, amount = value.split()
                self.pairs.setdefault((left, right), int(float(amount)))
            else:
                self.values.setdefault(key, value.strip())


@functools.lru_cache(maxsize=None)
def afm(path):
    return Afm(path)


class NamedFace(FreeTypeFace):
    """A Type 1 program in FreeType, whose glyphs are asked for by name."""

    def of_name(self, name):
        gid = LIBRARY.FT_Get_Name_Index(self.face, ctypes.c_char_p(name.encode()))
        if gid == 0 and name != ".notdef":
            raise ValueError(f"no glyph {name}")
        return self.drawn(gid)


@functools.lru_cache(maxsize=None)
def source_face(path):
    return NamedFace(read(path))


def charstrings(program):
    """The charstrings of a program, by t1disasm: name to text."""
    with tempfile.NamedTemporaryFile(suffix=".pfb") as file:
        file.write(program)
        file.flush()
        text = run("t1disasm", file.name).decode("latin-1")
    found = re.findall(r"^/(\S+) \{\n(.*?)\n\t\} ?(?:ND|\|-|noaccess def)", text, re.M | re.S)
    assert found
    return dict(found)


def parts_of(charstring):
    """The glyph names of the two parts of an accent."""
    found = re.search(r"(\d+) (\d+) seac", charstring)
    return {StandardEncoding[int(code)] for code in found.groups()} if found else set()


# --- The cases ------------------------------------------------------------------------------------

class Type1Test(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-type1-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def ask(self, *arguments):
        return json.loads(run(QXFONT, *arguments, "--json"))

    def embed(self, metrics, *more):
        """What the form holds, and its summary."""
        out = self.path("out.pfb")
        summary = self.ask("embed", metrics, "--form", "type1", "-o", out, *more)
        return read(out), summary

    def refused(self, status, *arguments):
        """What the tool tells where it refuses; nothing is written."""
        before = sorted(os.listdir(self.folder))
        done = subprocess.run([QXFONT, *arguments], capture_output=True, check=False, timeout=60)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertEqual(sorted(os.listdir(self.folder)), before)
        return done.stderr.decode()

    def pair(self, name, program, metrics=None, extension=".pfb"):
        """A metric file with a program, in the test's own folder."""
        path = self.path(name + ".afm")
        if metrics is None:
            shutil.copy(font(ROMAN), path)
        else:
            with open(path, "wb") as file:
                file.write(metrics)
        if program is not None:
            with open(self.path(name + extension), "wb") as file:
                file.write(program)
        return path


class MetricsTest(Type1Test):
    def test_there_are_fonts_of_three_makers(self):
        self.assertEqual(len(staged()), 35 + 92 + 8)

    def test_widths_are_those_of_the_metric_file(self):
        for metrics in staged():
            with self.subTest(font=os.path.basename(metrics)):
                told = {int(code): width for code, width in
                        self.ask("dump", metrics, "widths").items()}
                by_character = {}
                for name, width in afm(metrics).widths.items():
                    if name in AGL2UV:
                        by_character.setdefault(AGL2UV[name], set()).add(width)
                common = set(told) & set(by_character)
                self.assertGreater(len(common), 90)
                for code in common:
                    self.assertIn(told[code], by_character[code], f"U+{code:04X}")
                # The usual letters are all found.
                for code in range(ord("A"), ord("Z") + 1):
                    if code in by_character:
                        self.assertIn(code, told)

    def test_kerning_is_that_of_the_metric_file(self):
        kerned = 0
        # Each pair of characters is asked for: of Latin Modern a part of the fonts will do.
        modern = [metrics for metrics in staged() if os.path.basename(metrics).startswith("lm")]
        for metrics in sorted(set(staged()) - set(modern)) + modern[::8]:
            with self.subTest(font=os.path.basename(metrics)):
                told = {tuple(map(int, pair.split(","))): value for pair, value in
                        self.ask("dump", metrics, "kern").items()}
                named = {}
                for (left, right), value in afm(metrics).pairs.items():
                    if left in AGL2UV and right in AGL2UV:
                        named.setdefault((AGL2UV[left], AGL2UV[right]), value)
                measured = set(map(int, self.ask("dump", metrics, "widths")))
                expected = {pair: value for pair, value in named.items()
                            if value != 0 and measured.issuperset(pair)}
                self.assertEqual(told, expected)
                kerned += len(told)
        self.assertGreater(kerned, 50000)

    WEIGHTS = {"Light": 300, "Book": 400, "Roman": 400, "Regular": 400, "Normal": 400,
               "Medium": 500, "Demi": 400, "Bold": 700}  # "Demi" alone says nothing

    def test_names_and_styles_are_those_of_the_metric_file(self):
        for metrics in staged():
            with self.subTest(font=os.path.basename(metrics)):
                facts = self.ask("info", metrics)
                values = afm(metrics).values
                names, style = facts["names"]["0"], facts["style"]
                for key, name in (("family", "FamilyName"), ("full", "FullName"),
                                  ("postscript", "FontName")):
                    self.assertEqual(names[key], values[name])
                self.assertEqual(style["weight"], self.WEIGHTS[values["Weight"]])
                self.assertEqual(style["italic"], float(values["ItalicAngle"]) != 0)
                self.assertEqual(style["fixed_width"], values["IsFixedPitch"] == "true")
                box = [float(number) for number in values["FontBBox"].split()]
                for told, stated in zip(facts["metrics"]["bounds"], box):
                    self.assertAlmostEqual(told, stated, 2)
                self.assertAlmostEqual(facts["metrics"]["italic_angle"],
                                       float(values["ItalicAngle"]), 3)
                self.assertEqual(facts["embedding"]["status"], 0)

    def test_a_folder_of_them_is_listed_and_searched(self):
        rows = self.ask("list", "--only", os.path.dirname(font(ROMAN)))
        self.assertEqual(len(rows), len(staged()))
        self.assertEqual({row["file_type"] for row in rows}, {3})
        told = self.ask("match", "Nimbus Sans", "--weight", "700", "--explain", "--only",
                        os.path.dirname(font(ROMAN)))
        self.assertEqual((told["postscript_name"], told["pool"], told["step"], told["table"]),
                         ("NimbusSans-Bold", "main", "exact", "family"))

    def test_glyphs_are_told_by_characters(self):
        for name in SOME:
            with self.subTest(font=name):
                metrics = font(name)
                told = self.ask("glyphs", metrics, "AÄ’あ")
                self.assertEqual([row["code"] for row in told["glyphs"]],
                                 [0x41, 0xC4, 0x2019, 0x3042])
                widths = afm(metrics).widths
                expected = [widths["A"], widths["Adieresis"], widths["quoteright"], 0]
                for row, width in zip(told["glyphs"], expected):
                    self.assertAlmostEqual(row["width"], width, 2)
                self.assertAlmostEqual(told["text_width"], sum(expected), 2)
                self.assertEqual(told["first_missing"], 3)
                face = source_face(program_of(metrics))
                for row, glyph in zip(told["glyphs"], ("A", "Adieresis", "quoteright")):
                    self.assertEqual(face.drawn(row["glyph"]), face.of_name(glyph))


class EmbedTest(Type1Test):
    def pages_of(self, summary):
        return summary.get("pages", [{"page": 0, "file": self.path("out.pfb")}])

    def kept(self, metrics, rows):
        """The glyphs that a subset is to hold."""
        source = charstrings(read(program_of(metrics)))
        names = {".notdef"} | {row["name"] for row in rows}
        for name in set(names):
            names |= parts_of(source[name])
        return names

    def test_a_subset_holds_the_wanted_glyphs_and_draws_them_as_the_source(self):
        for metrics in staged():
            with self.subTest(font=os.path.basename(metrics)):
                text = "αβγ∑∫Ω" if SYMBOL in metrics else "✁✂✃" if "D050000L" in metrics else LATIN
                try:
                    _, summary = self.embed(metrics, "--text", text)
                except AssertionError:
                    self.assertIn("D050000L", metrics)  # its names are no characters' names
                    continue
                source = source_face(program_of(metrics))
                for page in self.pages_of(summary):
                    rows = [row for row in summary["map"] if row["id"] >> 8 == page["page"]]
                    written = NamedFace(read(page["file"]))
                    kept = self.kept(metrics, rows)
                    self.assertEqual(set(charstrings(written.data)), kept)
                    for name in kept:
                        self.assertEqual(written.of_name(name), source.of_name(name), name)
                    written.close()

    def test_the_numbering_tells_characters_names_and_widths(self):
        for name in SOME:
            with self.subTest(font=name):
                _, summary = self.embed(font(name), "--text", LATIN)
                self.assertEqual(summary["glyphs"], len(summary["map"]))
                self.assertEqual({row["unicode"] for row in summary["map"]},
                                 set(map(ord, LATIN)))
                for row in summary["map"]:
                    self.assertEqual(AGL2UV[row["name"]], row["unicode"])
                    self.assertEqual(row["width"], afm(font(name)).widths[row["name"]])
                self.assertEqual(len({row["id"] for row in summary["map"]}), len(summary["map"]))

    def test_lengths_are_those_of_the_segments(self):
        data, summary = self.embed(font(ROMAN), "--text", LATIN)
        at, lengths = 0, []
        for kind in (1, 2, 1):
            self.assertEqual(data[at:at + 2], bytes([0x80, kind]))
            lengths.append(int.from_bytes(data[at + 2:at + 6], "little"))
            at += 6 + lengths[-1]
        self.assertEqual(data[at:], b"\x80\x03")
        self.assertEqual(summary["lengths"], lengths)
        self.assertEqual(summary["bytes"], len(data))

    def characters(self, metrics, count):
        """So many characters of a font, those of the standard encoding last."""
        told = self.ask("dump", metrics, "widths")
        return "".join(chr(int(code)) for code in list(told)[::-1] if int(code) != 0xA0)[:count]

    def test_more_characters_than_a_page_make_several_files(self):
        for name in (ROMAN, MODERN):
            with self.subTest(font=name):
                text = self.characters(font(name), 400)
                _, summary = self.embed(font(name), "--text", text)
                rows = summary["map"]
                self.assertEqual(len(summary["pages"]), 1 + max(row["id"] for row in rows) // 256)
                self.assertGreater(len(summary["pages"]), 1)
                self.assertEqual(len({row["id"] for row in rows}), len(rows))
                self.assertEqual(summary["pages"][0]["file"], self.path("out.pfb"))
                self.assertEqual(summary["bytes"], sum(p["bytes"] for p in summary["pages"]))
                for page in summary["pages"]:
                    data = read(page["file"])
                    self.assertEqual(len(data), page["bytes"])
                    ours = [row for row in rows if row["id"] >> 8 == page["page"]]
                    self.assertEqual(set(charstrings(data)), self.kept(font(name), ours))

    def test_the_stream_is_the_whole_program(self):
        for name in SOME:
            with self.subTest(font=name):
                summary = self.ask("embed", font(name), "--form", "stream", "-o",
                                   self.path("out.pfb"))
                whole = read(self.path("out.pfb"))
                self.assertEqual(charstrings(whole), charstrings(read(program_of(font(name)))))
                self.assertEqual(sum(summary["lengths"]) + 3 * 6 + 2, len(whole))

    def test_two_runs_give_the_same_bytes(self):
        first, _ = self.embed(font(ROMAN), "--text", LATIN)
        self.assertEqual(first, self.embed(font(ROMAN), "--text", LATIN)[0])

    def test_wrong_calls(self):
        out = ["-o", self.path("out.pfb")]
        for form in ("sfnt", "cff", "woff", "svg2"):
            told = self.refused(WRONG_CALL, "embed", font(ROMAN), "--form", form, "--text", "a", *out)
            self.assertIn("it has: stream, type1\n", told)
        self.refused(WRONG_CALL, "embed", font(ROMAN), "--form", "type1", "--gids", "3", *out)
        self.refused(WRONG_CALL, "embed", LATO, "--form", "type1", "--text", "a", *out)
        self.refused(WRONG_CALL, "shape", font(ROMAN), "a", "--script", "latn")
        self.refused(1, "embed", font(ROMAN), "--form", "type1", "--text", "あ", *out)

    def test_a_character_that_is_missing_is_named(self):
        done = subprocess.run([QXFONT, "embed", font(ROMAN), "--form", "type1", "--text", "aあ",
                               "-o", self.path("out.pfb")], capture_output=True, check=False)
        self.assertEqual(done.returncode, 0)
        self.assertIn("has no glyph for U+3042", done.stderr.decode())


class FormsTest(Type1Test):
    """The same font in the other kinds of files."""

    def as_text(self, name):
        run("t1ascii", program_of(font(name)), self.path("a.pfa"))
        shutil.copy(font(name), self.path("a.afm"))
        return self.path("a.afm")

    def test_a_program_of_text_gives_the_same_glyphs(self):
        for name in SOME:
            with self.subTest(font=name):
                metrics = self.as_text(name)
                _, summary = self.embed(metrics, "--text", LATIN)
                self.assertEqual({AGL2UV[row["name"]] for row in summary["map"]},
                                 set(map(ord, LATIN)))
                source, kept = source_face(program_of(font(name))), set()
                for page in summary.get("pages", [{"file": self.path("out.pfb")}]):
                    written = NamedFace(read(page["file"]))
                    for glyph in charstrings(written.data):
                        self.assertEqual(written.of_name(glyph), source.of_name(glyph), glyph)
                        kept.add(glyph)
                self.assertLessEqual({row["name"] for row in summary["map"]}, kept)

    def test_a_program_made_binary_again_is_the_same_font(self):
        self.as_text(ROMAN)
        run("t1binary", self.path("a.pfa"), self.path("b.pfb"))
        shutil.copy(font(ROMAN), self.path("b.afm"))
        again, _ = self.embed(self.path("b.afm"), "--text", LATIN)
        first, _ = self.embed(font(ROMAN), "--text", LATIN)
        self.assertEqual(charstrings(again), charstrings(first))

    def as_pfm(self, name):
        script = ("import fontforge, sys\n"
                  "font = fontforge.open(sys.argv[1])\n"
                  "font.mergeFeature(sys.argv[2])\n"
                  "font.generate(sys.argv[3], flags=('afm', 'pfm'))\n")
        run("/usr/bin/python3", "-c", script, program_of(font(name)), font(name),
            self.path("w.pfb"))
        os.remove(self.path("w.afm"))
        return self.path("w.pfm")

    def test_a_pfm_tells_what_the_afm_tells(self):
        metrics = self.as_pfm(CHARTER)
        names = self.ask("info", metrics)["names"]["0"]
        # FontForge puts the font's own name where none looks for it.
        self.assertEqual(names["family"], afm(font(CHARTER)).values["FamilyName"])
        self.assertEqual(self.ask("list", "--only", self.folder)[0]["file_type"], 4)
        widths = self.ask("dump", metrics, "widths")
        stated = afm(font(CHARTER)).widths
        for character in "AZaz09ÄßÉ":
            name = {v: k for k, v in AGL2UV.items()}[ord(character)]
            self.assertEqual(widths[str(ord(character))], stated[name], character)
        pairs = self.ask("dump", metrics, "kern")
        kerned = {(AGL2UV[l], AGL2UV[r]): v for (l, r), v in
                  afm(font(CHARTER)).pairs.items()
                  if max(AGL2UV.get(l, 0x7F), AGL2UV.get(r, 0x7F)) < 0x7F and v != 0}
        ascii_pairs = {tuple(map(int, k.split(","))): v for k, v in pairs.items()
                       if all(int(c) < 0x7F for c in k.split(","))}
        self.assertEqual(ascii_pairs, kerned)

    def test_a_document_is_set_by_a_pfm(self):
        metrics = self.as_pfm(CHARTER)
        with open(self.path("t.txt"), "w", encoding="utf-8") as file:
            file.write(LATIN)
        self.ask("typeset", self.path("t.txt"), "--font", metrics, "-o", self.path("t.pdf"))
        given = run("pdftotext", "-raw", self.path("t.pdf"), "-").decode()
        self.assertEqual(given.split(), LATIN.split())


class DocumentTest(Type1Test):
    def typeset(self, name, text, out, size="40"):
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write(text)
        return self.ask("typeset", self.path("text.txt"), "--font", font(name), "--size", size,
                        "-o", self.path(out))

    def text_of(self, out):
        return run("pdftotext", "-raw", self.path(out), "-").decode()

    def test_documents_are_sound_and_give_their_text_back(self):
        for name in (*SOME, SANS):
            with self.subTest(font=name):
                summary = self.typeset(name, LATIN, "out.pdf", size="20")
                self.assertEqual(summary["missing"], [])
                self.assertEqual({f["form"] for f in summary["fonts"]}, {"type1"})
                run("qpdf", "--check", self.path("out.pdf"))
                rows = run("pdffonts", self.path("out.pdf")).decode().split("\n")[2:]
                self.assertRegex(rows[0], r"^[A-Z]{6}\+\S+ +Type 1 +Custom +yes yes yes")
                self.assertEqual(self.text_of("out.pdf").split(), LATIN.split())

    def test_the_embedded_program_has_its_three_lengths(self):
        self.typeset(ROMAN, LATIN, "out.pdf")
        run("qpdf", "--qdf", "--object-streams=disable", self.path("out.pdf"), self.path("q.pdf"))
        text = read(self.path("q.pdf"))
        lengths = [int(re.search(rb"/Length%d (\d+)" % i, text)[1]) for i in (1, 2, 3)]
        at = text.index(b"%!PS-AdobeFont")
        program = text[at:at + sum(lengths)]
        self.assertTrue(program[:lengths[0]].rstrip().endswith(b"currentfile eexec"))
        self.assertIn(b"cleartomark", program[-lengths[2]:])
        self.assertNotIn(b"\x80\x01", program[:2])
        self.assertTrue(text[at + sum(lengths):].lstrip().startswith(b"endstream"))

    def test_widths_in_the_document_are_those_of_the_metric_file(self):
        self.typeset(ROMAN, "AVWm", "out.pdf")
        run("qpdf", "--qdf", "--object-streams=disable", self.path("out.pdf"), self.path("q.pdf"))
        text = read(self.path("q.pdf")).decode("latin-1")
        first = int(re.search(r"/FirstChar (\d+)", text)[1])
        numbers = re.search(r"/Widths \[([^]]*)\]", text)[1].split()
        widths = afm(font(ROMAN)).widths
        for letter in "AVWm":
            self.assertEqual(float(numbers[ord(letter) - first]), widths[letter])
        self.assertEqual(float(numbers[ord("B") - first]), 0)

    def test_kerning_moves_the_glyphs(self):
        self.typeset(ROMAN, "AV", "out.pdf")
        run("qpdf", "--qdf", "--object-streams=disable", self.path("out.pdf"), self.path("q.pdf"))
        value = afm(font(ROMAN)).pairs["A", "V"]
        self.assertIn(f"[(A){-value}(V)] TJ".encode(), read(self.path("q.pdf")))

    DOTS = 150

    def pictures(self):
        shown = [by_poppler(self.path("out.pdf"), self.DOTS)]
        for out in ("out.pdf", "out.ps"):
            shown.append(by_ghostscript(self.path(out), self.DOTS))
        return shown

    def test_poppler_and_ghostscript_show_the_same_in_pdf_and_postscript(self):
        for name, text in ((ROMAN, LATIN), (MODERN, LATIN), (CHARTER, LATIN), (SYMBOL, "αβγ ∑∫")):
            with self.subTest(font=name):
                self.typeset(name, text, "out.pdf")
                self.typeset(name, text, "out.ps")
                pictures = self.pictures()
                self.assertGreater(pictures[0].ink(), 255 * 500)
                self.assertLess(pictures[1].apart(pictures[2]), 0.05)
                self.assertLess(pictures[0].apart_at_best(pictures[1]), 0.2)

    def test_a_document_shows_what_the_same_design_shows_in_opentype(self):
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write("Hamburgefonstiv ÄÖÜ ß")
        for out, source in (("a.pdf", font(ROMAN)), (
                "b.pdf", "/usr/share/fonts/opentype/urw-base35/NimbusRoman-Regular.otf")):
            self.ask("typeset", self.path("text.txt"), "--font", source, "--size", "40", "-o",
                     self.path(out))
        ours, theirs = (by_ghostscript(self.path(out), self.DOTS) for out in ("a.pdf", "b.pdf"))
        self.assertLess(ours.apart(theirs), 0.1)

    def test_more_characters_than_a_page_are_several_fonts(self):
        codes = [int(code) for code in self.ask("dump", font(ROMAN), "widths")]
        words = [chr(code) for code in codes if 0x21 <= code < 0x250 or 0x400 <= code < 0x460]
        words = [word for word in words if word not in "\xa0\xad"]
        self.assertGreater(len(words), 300)
        text = " ".join(words)
        summary = self.typeset(ROMAN, text, "out.pdf", size="30")
        self.typeset(ROMAN, text, "out.ps", size="30")
        self.assertEqual(summary["missing"], [])
        self.assertGreater(len(summary["fonts"]), 2)
        self.assertEqual({row["form"] for row in summary["fonts"]}, {"type1"})
        self.assertEqual(self.text_of("out.pdf").split(), words)
        pictures = self.pictures()
        self.assertLess(pictures[1].apart(pictures[2]), 0.05)
        self.assertLess(pictures[0].apart_at_best(pictures[1]), 0.2)

    def test_a_mixed_document_has_all_kinds_of_fonts(self):
        otf = "/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf"
        text = f"Serif (A)\n\n#font {LATO}\nSans\n\n#font {font(SANS)}\nBold\n\n#font {otf}\nRegular"
        summary = self.typeset(ROMAN, text, "out.pdf")
        self.assertEqual([f["form"] for f in summary["fonts"]], ["type1", "sfnt", "type1", "cff"])
        self.assertEqual(self.text_of("out.pdf").split(), ["Serif", "(A)", "Sans", "Bold", "Regular"])
        self.typeset(ROMAN, f"Serif\n\n#font {otf}\nRegular", "out.ps")
        by_ghostscript(self.path("out.ps"), 36)

    def test_characters_that_a_font_lacks_are_lent_by_another(self):
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write("a α あ b")
        summary = self.ask("typeset", self.path("text.txt"), "--font", font(ROMAN), "--font",
                           font(SYMBOL), "-o", self.path("out.pdf"))
        self.assertEqual(summary["missing"], ["U+3042"])
        self.assertEqual(self.text_of("out.pdf").split(), ["a", "α", "あ", "b"])

    def test_brackets_turn_in_text_from_right_to_left(self):
        self.typeset(ROMAN, "\u202e(ab)\u202c", "out.pdf")
        run("qpdf", "--qdf", "--object-streams=disable", self.path("out.pdf"), self.path("q.pdf"))
        self.assertIn(rb"[(\(ba\))] TJ", read(self.path("q.pdf")))


class DamageTest(Type1Test):
    def embed_damaged(self, metrics):
        return self.refused(BAD_FONT, "embed", metrics, "--form", "type1", "--text", "abc", "-o",
                            self.path("out.pfb"))

    def test_a_program_cut_short_does_not_embed(self):
        whole = read(program_of(font(ROMAN)))
        for size in (len(whole) - 1, len(whole) - 600, len(whole) // 2, 3000):
            with self.subTest(size=size):
                told = self.embed_damaged(self.pair("cut", whole[:size]))
                self.assertRegex(told, "is damaged|Cannot read font information")

    def test_a_program_whose_header_is_no_header_leaves_metrics(self):
        for program in (b"", b"\x80\x01", b"\x00" * 20, b"%!PS-AdobeFont-1.0: Made\n",
                        b"\x80\x01\xff\xff\xff\xffabc"):
            with self.subTest(program=program):
                metrics = self.pair("bad", program)
                facts = self.ask("info", metrics)
                self.assertEqual(facts["embedding"]["status"], 1)
                told = self.refused(WRONG_CALL, "embed", metrics, "--form", "type1", "--text", "a",
                                    "-o", self.path("out.pfb"))
                self.assertIn("it has: none", told)

    def test_a_program_that_is_noise_does_not_embed(self):
        whole = bytearray(read(program_of(font(ROMAN))))
        at = whole.index(b"currentfile eexec") + 30
        whole[at:at + 2000] = bytes(2000)
        self.embed_damaged(self.pair("noise", bytes(whole)))

    def test_a_damaged_metric_file_is_told_with_its_line(self):
        for text, line in ((b"StartFontMetrics 4.1\nStartCharMetrics 0\n", 2),
                           (b"FontBBox 1 2 3\n", 1), (b"C 65 ; WX 500 ; N A ;\n", 1)):
            with self.subTest(text=text):
                told = self.refused(BAD_FONT, "info", self.pair("bad", None, text))
                self.assertIn(f"in line #{line} : ", told)

    def test_a_short_pfm_is_told(self):
        with open(self.path("bad.pfm"), "wb") as file:
            file.write(bytes(100))
        self.refused(BAD_FONT, "info", self.path("bad.pfm"))

    def test_the_doctor_names_what_has_no_partner_and_why(self):
        whole = read(program_of(font(ROMAN)))
        alone = self.pair("alone", None)
        other_case = self.pair("Case", whole, extension=".PFB")
        noise = self.pair("noise", b"no program")
        orphan = self.path("orphan.pfb")
        shutil.copy(program_of(font(ROMAN)), orphan)
        told = self.ask("doctor", "--only", self.folder)
        advice = "\n".join(told["advice"])
        self.assertIn(f"{alone} has metrics without outlines: put its .pfb or .pfa beside it", advice)
        self.assertIn(f"{orphan} is not found without metrics: put its .afm or .pfm beside it",
                      advice)
        self.assertIn(f"{other_case} has metrics without outlines: call Case.PFB Case.pfb", advice)
        self.assertTrue(any("Header bad signature" in error["message"] and noise[:-4] in
                            error["message"] for error in told["errors"]), told["errors"])

    def test_a_program_alone_is_told_to_need_its_metrics(self):
        path = self.path("alone.pfb")
        shutil.copy(program_of(font(ROMAN)), path)
        told = self.refused(BAD_FONT, "info", path)
        self.assertIn("hint: a Type 1 font is opened by its metrics", told)

    def test_metrics_alone_measure_and_set_no_text(self):
        metrics = self.pair("alone", None)
        self.assertAlmostEqual(self.ask("glyphs", metrics, "AV")["text_width"], 722 * 2, 1)
        with open(self.path("t.txt"), "w", encoding="utf-8") as file:
            file.write("a")
        told = self.refused(WRONG_CALL, "typeset", self.path("t.txt"), "--font", metrics, "-o",
                            self.path("out.pdf"))
        self.assertIn("has no outlines", told)


if __name__ == "__main__":
    unittest.main()
