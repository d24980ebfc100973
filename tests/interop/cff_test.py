#!/usr/bin/env python3
"""Embeds fonts with CFF outlines and lays what qxfont writes beside its source.

fontTools and FreeType draw the glyphs of both; poppler and Ghostscript show the documents. The
variable QXFONT names the program; ctest sets it.
"""

import ctypes
import functools
import glob
import io
import json
import os
import random
import re
import shutil
import subprocess
import tempfile
import unittest

from fontTools.cffLib import CFFFontSet, FDArrayIndex, FDSelect, FontDict, SubrsIndex
from fontTools.misc.psCharStrings import T1CharString, T2CharString, T2OutlineExtractor
from fontTools.pens.recordingPen import RecordingPen
from fontTools.pens.roundingPen import RoundingPen
from fontTools.ttLib import TTCollection, TTFont
from fontTools.ttLib.tables.DefaultTable import DefaultTable

QXFONT = os.environ["QXFONT"]
URW = "/usr/share/fonts/opentype/urw-base35"
NIMBUS = f"{URW}/NimbusRoman-Regular.otf"
NIMBUS_BOLD = f"{URW}/NimbusRoman-Bold.otf"
GARAMOND = "/usr/share/fonts/opentype/ebgaramond/EBGaramond12-Regular.otf"
LIBERTINE = "/usr/share/fonts/opentype/linux-libertine/LinLibertine_R.otf"
LATIN_MODERN = "/usr/share/texmf/fonts/opentype/public/lm/lmroman10-regular.otf"
UNIFONT = "/usr/share/fonts/opentype/unifont/unifont_jp.otf"
NOTO_CJK = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc"
NOTO_FACE = "NotoSansCJKjp-Regular"

NAME_KEYED = (NIMBUS, GARAMOND, LIBERTINE, LATIN_MODERN)
LATIN = "Hamburgefonstiv 0123456789 ÄÅÇÉÑÖßàæéøü “quoted” (AV) QR&§"
JAPANESE = "吾輩は猫である。名前はまだ無い。 abc"
# Of many Font DICTs: ideographs, kana, Hangul, Bopomofo, dingbats, digits, full and half width.
CJK = JAPANESE + " 한국어 ㄅㄆ カナ ｶﾅ ①→─「」 ΩЖ 2026"


def run(*arguments, status=0):
    done = subprocess.run(arguments, capture_output=True, check=False, timeout=300)
    assert done.returncode == status, (arguments, done.stdout[-500:], done.stderr)
    return done.stdout


@functools.lru_cache(maxsize=None)
def opened(path):
    return TTFont(path)


def read(path):
    with open(path, "rb") as file:
        return file.read()


# --- FreeType, the parts of its records that an outline needs -------------------------------------

class Vector(ctypes.Structure):
    _fields_ = [("x", ctypes.c_long), ("y", ctypes.c_long)]


class Outline(ctypes.Structure):
    _fields_ = [("n_contours", ctypes.c_short), ("n_points", ctypes.c_short),
                ("points", ctypes.POINTER(Vector)), ("tags", ctypes.POINTER(ctypes.c_ubyte)),
                ("contours", ctypes.POINTER(ctypes.c_short)), ("flags", ctypes.c_int)]


class Bitmap(ctypes.Structure):
    _fields_ = [("rows", ctypes.c_uint), ("width", ctypes.c_uint), ("pitch", ctypes.c_int),
                ("buffer", ctypes.c_void_p), ("num_grays", ctypes.c_ushort),
                ("pixel_mode", ctypes.c_ubyte), ("palette_mode", ctypes.c_ubyte),
                ("palette", ctypes.c_void_p)]


class Slot(ctypes.Structure):
    _fields_ = [("library", ctypes.c_void_p), ("face", ctypes.c_void_p), ("next", ctypes.c_void_p),
                ("glyph_index", ctypes.c_uint), ("generic", ctypes.c_void_p * 2),
                ("metrics", ctypes.c_long * 8), ("linearHoriAdvance", ctypes.c_long),
                ("linearVertAdvance", ctypes.c_long), ("advance", Vector),
                ("format", ctypes.c_int), ("bitmap", Bitmap), ("bitmap_left", ctypes.c_int),
                ("bitmap_top", ctypes.c_int), ("outline", Outline)]


class Face(ctypes.Structure):
    _fields_ = [("num_faces", ctypes.c_long), ("face_index", ctypes.c_long),
                ("face_flags", ctypes.c_long), ("style_flags", ctypes.c_long),
                ("num_glyphs", ctypes.c_long), ("family_name", ctypes.c_char_p),
                ("style_name", ctypes.c_char_p), ("num_fixed_sizes", ctypes.c_int),
                ("available_sizes", ctypes.c_void_p), ("num_charmaps", ctypes.c_int),
                ("charmaps", ctypes.c_void_p), ("generic", ctypes.c_void_p * 2),
                ("bbox", ctypes.c_long * 4), ("units_per_EM", ctypes.c_ushort),
                ("ascender", ctypes.c_short), ("descender", ctypes.c_short),
                ("height", ctypes.c_short), ("max_advance_width", ctypes.c_short),
                ("max_advance_height", ctypes.c_short), ("underline_position", ctypes.c_short),
                ("underline_thickness", ctypes.c_short), ("glyph", ctypes.POINTER(Slot))]


LOAD_NO_SCALE = 1
LIBRARY = ctypes.CDLL("libfreetype.so.6")
FREETYPE = ctypes.c_void_p()
assert LIBRARY.FT_Init_FreeType(ctypes.byref(FREETYPE)) == 0


class FreeTypeFace:
    def __init__(self, data):
        self.data = data
        self.face = ctypes.POINTER(Face)()
        code = LIBRARY.FT_New_Memory_Face(FREETYPE, data, ctypes.c_long(len(data)),
                                          ctypes.c_long(0), ctypes.byref(self.face))
        if code != 0:
            raise ValueError(f"FreeType refuses the font: {code}")

    def close(self):
        LIBRARY.FT_Done_Face(self.face)

    def glyph_count(self):
        return self.face.contents.num_glyphs

    def units(self):
        return self.face.contents.units_per_EM

    def drawn(self, gid):
        """Advance and outline of a glyph, in font units."""
        code = LIBRARY.FT_Load_Glyph(self.face, ctypes.c_uint(gid), ctypes.c_int(LOAD_NO_SCALE))
        if code != 0:
            raise ValueError(f"glyph {gid}: {code}")
        slot = self.face.contents.glyph.contents
        outline = slot.outline
        points = [(outline.points[i].x, outline.points[i].y, outline.tags[i] & 3)
                  for i in range(outline.n_points)]
        return slot.metrics[4], points, [outline.contours[i] for i in range(outline.n_contours)]


def scaled(drawn, units):
    """A drawn glyph in other units, which halves are rounded up to."""
    def whole(number):
        return int(number * units + 0.5) if number >= 0 else -int(-number * units + 0.5)
    advance, points, contours = drawn
    return whole(advance), [(whole(x), whole(y), tag) for x, y, tag in points], contours


@functools.lru_cache(maxsize=None)
def source_face(path):
    return FreeTypeFace(read(path))


# --- Fonts made here ------------------------------------------------------------------------------

def with_own_subrs(private, global_subrs):
    """Gives a Private DICT one subroutine, which ends a glyph."""
    private.Subrs = SubrsIndex()
    private.Subrs.append(T2CharString(program=["endchar"], private=private,
                                      globalSubrs=global_subrs))
    return private


MADE = tempfile.TemporaryDirectory(prefix="qxfont-cff-")


@functools.lru_cache(maxsize=None)
def cid_keyed():
    """NimbusRoman CID-keyed, with two Font DICTs: every third glyph is that of the bold face."""
    path = os.path.join(MADE.name, "cid.otf")
    font, bold = TTFont(NIMBUS), TTFont(NIMBUS_BOLD)
    for each in (font, bold):
        each["CFF "].cff.desubroutinize()
    top, bold_top = (f["CFF "].cff.topDictIndex[0] for f in (font, bold))
    order = font.getGlyphOrder()
    names = [".notdef"] + [f"cid{gid:05d}" for gid in range(1, len(order))]
    strings = top.CharStrings
    charstrings, select, dicts = {}, [], []
    for private in (top.Private, bold_top.Private):
        fd = FontDict()
        fd.setCFF2(False)
        fd.Private = with_own_subrs(private, top.GlobalSubrs)
        fd.FontName = "NimbusRoman"
        dicts.append(fd)
    for gid, name in enumerate(order):
        is_bold = gid % 3 == 2 and name in bold_top.CharStrings.charStrings
        charstring = (bold_top.CharStrings if is_bold else strings)[name]
        assert charstring.program[-1] == "endchar"
        charstring.program[-1:] = [-107, "callsubr"]
        select.append(int(is_bold))
        charstrings[names[gid]] = charstring
    array = FDArrayIndex()
    array.strings = None
    array.GlobalSubrs = top.GlobalSubrs
    for fd in dicts:
        array.append(fd)
    top.FDArray = array
    top.FDSelect = FDSelect()
    top.FDSelect.format = 3
    top.FDSelect.gidArray = select
    top.ROS = ("Adobe", "Identity", 0)
    top.CIDCount = len(order)
    del top.Private
    for gone in ("Private", "Encoding"):
        top.rawDict.pop(gone, None)
    strings.charStrings = charstrings
    strings.charStringsAreIndexed = 0
    strings.fdArray = array
    strings.fdSelect = top.FDSelect
    top.charset = names
    made = TTFont(NIMBUS, recalcBBoxes=False)
    made.setGlyphOrder(order)
    made["CFF "] = DefaultTable("CFF ")
    made["CFF "].data = font["CFF "].compile(font)
    for gid, name in enumerate(order):
        made["hmtx"][name] = ((font, bold)[select[gid]]["hmtx"][name][0], 0)
    made.save(path)
    return path


@functools.lru_cache(maxsize=None)
def noto_cjk():
    """A face cut out of its collection, the tables as they are: CID-keyed, 65,535 glyphs."""
    path = os.path.join(MADE.name, "noto_cjk.otf")
    with TTCollection(NOTO_CJK, lazy=True) as collection:
        face = next(font for font in collection.fonts if font["name"].getDebugName(6) == NOTO_FACE)
        face.save(path)
    return path


def vertical_forms(font):
    """Glyphs that stand in for others in vertical text."""
    gsub = font["GSUB"].table
    lookups = {index for record in gsub.FeatureList.FeatureRecord if record.FeatureTag == "vert"
               for index in record.Feature.LookupListIndex}
    forms = {}
    for index in sorted(lookups):
        for subtable in gsub.LookupList.Lookup[index].SubTable:
            forms.update(getattr(subtable, "ExtSubTable", subtable).mapping)
    return forms


def seac(path):
    """Latin Modern in which Aacute is an accented composite, as Type 1 has them."""
    font = TTFont(LATIN_MODERN)
    charstring = font["CFF "].cff[0].CharStrings["Aacute"]
    charstring.decompile()
    width = font["hmtx"]["Aacute"][0] - font["CFF "].cff[0].Private.nominalWidthX
    charstring.program = [width, 120, 150, 65, 194, "endchar"]
    charstring.bytecode = None
    font.save(path)
    return path


# --- Pictures -------------------------------------------------------------------------------------

@functools.lru_cache(maxsize=None)
def white_row(width, side):
    return [255 * side * side] * (width // side)


class Picture:
    """A page in grey, from a PGM."""

    def __init__(self, data):
        head = re.match(rb"P5\s+(?:#[^\n]*\n)?(\d+)\s+(\d+)\s+255\s", data)
        self.width, self.height = int(head[1]), int(head[2])
        self.pixels = data[head.end():]

    def ink(self):
        return sum(255 - pixel for pixel in self.pixels)

    def apart(self, other, side=2, dx=0, dy=0):
        """The part of the ink that stands elsewhere, seen in squares of `side` pixels."""
        width, height = min(self.width, other.width) - 2, min(self.height, other.height) - 2
        apart = 0
        for y in range(2, height - side, side):
            ours, theirs = self.row(1, y, width, side), other.row(1 + dx, y + dy, width, side)
            if ours is not theirs:
                apart += sum(abs(a - b) for a, b in zip(ours, theirs) if a != b)
        return apart / max(self.ink(), 1)

    def apart_at_best(self, other):
        """The same where each program is free to begin the page within a pixel, and to hint."""
        return min(self.apart(other, 4, dx, dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1))

    def row(self, x, y, width, side):
        lines = [self.pixels[at * self.width + x:at * self.width + x + width]
                 for at in range(y, y + side)]
        if all(line.count(255) == len(line) for line in lines):
            return white_row(width, side)
        columns = [line[i::side] for line in lines for i in range(side)]
        return [sum(square) for square in zip(*columns)]


def by_ghostscript(path, dots, *more):
    return Picture(run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=pgmraw",
                       f"-r{dots}", "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", *more,
                       "-sOutputFile=-", path))


def by_poppler(path, dots):
    return Picture(run("pdftoppm", "-gray", "-r", str(dots), path))


def recorded(glyph):
    pen = RecordingPen()
    glyph.draw(pen)
    return pen.value


def path_of(font, gid):
    """PostScript that fills a glyph of the source."""
    names = {"moveTo": "moveto", "lineTo": "lineto", "curveTo": "curveto", "closePath": "closepath"}
    rows = []
    for operator, points in recorded(font.getGlyphSet()[font.getGlyphName(gid)]):
        numbers = " ".join(f"{x} {y}" for x, y in points)
        rows.append(f"{numbers} {names[operator]}")
    return "\n".join(rows) + " fill\n"


# --- The cases ------------------------------------------------------------------------------------

class CffTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-cff-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def embed(self, font, form, *more):
        """What a form holds, and its summary."""
        out = self.path("out")
        summary = run(QXFONT, "embed", font, "--form", form, "-o", out, "--json", *more)
        return read(out), json.loads(summary)

    def both_kinds(self):
        for font in NAME_KEYED:
            yield font, LATIN
        yield cid_keyed(), LATIN
        yield UNIFONT, JAPANESE
        yield noto_cjk(), CJK


class EmbedTest(CffTest):
    def test_each_kept_glyph_of_a_bare_cff_is_drawn_as_in_the_source(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                data, summary = self.embed(font, "cff", "--text", text)
                rows = summary["map"]
                # FreeType asks a font that is CID-keyed for CIDs.
                source, written = source_face(font), FreeTypeFace(data)
                # A font with its matrix in its Font DICTs has 1000 units where no head says more.
                units = written.units() / source.units()
                self.assertEqual(written.drawn(0), scaled(source.drawn(0), units))
                for row in rows:
                    self.assertEqual(written.drawn(row["id"]),
                                     scaled(source.drawn(row["glyph"]), units), row)
                asked = {opened(font).getGlyphID(opened(font).getBestCmap()[ord(c)]) for c in text}
                self.assertEqual({row["glyph"] for row in rows}, asked)

    def test_fonttools_reads_a_bare_cff_and_draws_its_glyphs(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                data, summary = self.embed(font, "cff", "--text", text)
                fonts = CFFFontSet()
                fonts.decompile(io.BytesIO(data), None)
                rows, names = summary["map"], fonts[0].charset
                self.assertEqual(len(names), len(rows) + 1)
                is_cid = hasattr(fonts[0], "ROS")
                for row in rows:
                    name = f"cid{row['id']:05d}" if is_cid else names[row["id"]]
                    source = opened(font).getGlyphName(row["glyph"])
                    self.assertEqual(recorded(fonts[0].CharStrings[name]),
                                     recorded(opened(font).getGlyphSet()[source]), row)

    def test_a_bare_cff_of_a_name_keyed_font_keeps_names(self):
        for font in NAME_KEYED:
            with self.subTest(font=font):
                data, summary = self.embed(font, "cff", "--text", LATIN)
                fonts = CFFFontSet()
                fonts.decompile(io.BytesIO(data), None)
                names = fonts[0].charset
                for row in summary["map"]:
                    self.assertEqual(names[row["id"]], opened(font).getGlyphName(row["glyph"]))
                self.assertEqual(names[0], ".notdef")

    def test_the_numbering_tells_characters_and_widths(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                _, summary = self.embed(font, "cff", "--text", text)
                for row in summary["map"]:
                    name = opened(font).getGlyphName(row["glyph"])
                    self.assertEqual(opened(font).getBestCmap()[row["unicode"]], name)
                    self.assertEqual(row["width"], opened(font)["hmtx"][name][0])

    def test_the_stream_is_the_cff_table(self):
        for font, _ in self.both_kinds():
            data, _ = self.embed(font, "stream")
            self.assertEqual(data, opened(font).reader["CFF "])

    def test_parts_of_a_composite_go_along(self):
        font = seac(self.path("seac.otf"))
        data, summary = self.embed(font, "cff", "--text", "Á")
        names = {opened(font).getGlyphName(row["glyph"]) for row in summary["map"]}
        self.assertEqual(names, {"Aacute", "A", "acute"})
        source, written = FreeTypeFace(read(font)), FreeTypeFace(data)
        for row in summary["map"]:
            self.assertEqual(written.drawn(row["id"]), source.drawn(row["glyph"]))

    def test_a_subset_in_its_sfnt_keeps_ids_and_shows_a_space_for_the_others(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                data, summary = self.embed(font, "sfnt-all", "--text", text, "--as-specified")
                source, written = source_face(font), FreeTypeFace(data)
                kept = {row["id"] for row in summary["map"]}
                self.assertEqual({row["glyph"] for row in summary["map"]}, kept)
                fonts = TTFont(io.BytesIO(data))
                self.assertEqual(set(fonts.keys()), set(opened(font).keys()))
                table = fonts.reader["CFF "]
                at = fonts["CFF "].cff[0].rawDict["CharStrings"]
                count = int.from_bytes(table[at:at + 2], "big")
                self.assertEqual(count, max(kept) + 1)
                space = source.drawn(opened(font).getGlyphID(opened(font).getBestCmap()[32]))[1:]
                for gid in kept | {0}:
                    self.assertEqual(written.drawn(gid), source.drawn(gid), gid)
                for gid in range(1, min(count, 3000)):
                    if gid not in kept and opened(font).getGlyphOrder()[gid] != ".notdef":
                        self.assertEqual(written.drawn(gid)[1:], space, gid)

    def test_two_runs_give_the_same_bytes(self):
        for font, text in ((NIMBUS, LATIN), (UNIFONT, JAPANESE)):
            for form, more in (("cff", []), ("sfnt-all", ["--as-specified"]), ("cid-ps", [])):
                first, _ = self.embed(font, form, "--text", text, *more)
                second, _ = self.embed(font, form, "--text", text, *more)
                self.assertEqual(first, second, form)

    def test_a_font_without_cff_has_none_of_its_forms(self):
        for form in ("cff", "cid-ps"):
            run(QXFONT, "embed", "/usr/share/fonts/truetype/lato/Lato-Regular.ttf", "--form", form,
                "--text", "a", "-o", self.path("out"), status=2)

    def test_glyphs_that_do_not_convert_are_named(self):
        font = opened(NIMBUS)
        gid = font.getGlyphID("Phi")  # its charstring begins with a counter mask
        done = subprocess.run([QXFONT, "embed", NIMBUS, "--form", "cid-ps", "--gids", f"30,{gid}",
                               "-o", self.path("out")], capture_output=True, check=False)
        self.assertEqual(done.returncode, 3)
        self.assertIn(f"glyphs that do not convert: {gid}\n", done.stderr.decode())
        self.assertFalse(os.path.exists(self.path("out")))


class NotoCjkTest(CffTest):
    """The largest font of this kind that there is."""

    def setUp(self):
        super().setUp()
        self.font = opened(noto_cjk())
        self.top = self.font["CFF "].cff[0]

    def test_it_is_large_with_many_font_dicts_and_vertical_forms(self):
        self.assertEqual(len(self.top.CharStrings), 65535)
        self.assertEqual(self.top.FDSelect.format, 3)
        self.assertEqual(len(self.top.FDArray), 18)
        self.assertGreater(len(vertical_forms(self.font)), 100)
        dicts = {self.top.FDSelect[self.font.getGlyphID(self.font.getBestCmap()[ord(c)])]
                 for c in CJK}
        self.assertGreater(len(dicts), 7)

    def test_each_glyph_of_a_bare_cff_keeps_its_font_dict(self):
        data, summary = self.embed(noto_cjk(), "cff", "--text", CJK)
        fonts = CFFFontSet()
        fonts.decompile(io.BytesIO(data), None)
        written = fonts[0]
        order = written.charset
        for row in summary["map"]:
            at = written.FDSelect[order.index(f"cid{row['id']:05d}")]
            source = self.top.FDSelect[row["glyph"]]
            self.assertEqual(written.FDArray[at].FontName, self.top.FDArray[source].FontName, row)

    def test_vertical_forms_are_drawn_as_in_the_source(self):
        names = sorted(set(vertical_forms(self.font).values()))[::7]
        gids = sorted(self.font.getGlyphID(name) for name in names)
        asked = ",".join(map(str, gids))
        source = source_face(noto_cjk())
        for form in ("cff", "sfnt-all"):
            with self.subTest(form=form):
                data, summary = self.embed(noto_cjk(), form, "--gids", asked)
                written = FreeTypeFace(data)
                self.assertEqual([row["glyph"] for row in summary["map"]], gids)
                for row in summary["map"]:
                    self.assertEqual(written.drawn(row["id"]), source.drawn(row["glyph"]), row)

    def test_a_subset_in_its_sfnt_keeps_the_vertical_forms_of_its_tables(self):
        data, _ = self.embed(noto_cjk(), "sfnt-all", "--text", CJK)
        with TTFont(io.BytesIO(data)) as written:
            self.assertEqual(vertical_forms(written), vertical_forms(self.font))


class ConformingTest(CffTest):
    @staticmethod
    def sources():
        folders = ("/usr/share/fonts/opentype/*", "/usr/share/texmf/fonts/opentype/public/*")
        return sorted(path for folder in folders for path in glob.glob(f"{folder}/*.otf"))

    @staticmethod
    def is_sanitary(path):
        return subprocess.run(["ots-sanitize", path, os.devnull], capture_output=True,
                              check=False).returncode == 0

    def test_strict_readers_take_the_subset_of_every_font_that_they_take(self):
        fonts = [font for font in self.sources() if self.is_sanitary(font)]
        self.assertGreater(len(fonts), 100)
        for font in [*fonts, cid_keyed(), noto_cjk()]:
            with self.subTest(font=font), TTFont(font, lazy=True) as source:
                characters = sorted(source.getBestCmap())
                chosen = random.Random(font).sample(characters, min(50, len(characters)))
                unicodes = ",".join(f"U+{code:04X}" for code in chosen)
                data, summary = self.embed(font, "sfnt-all", "--unicodes", unicodes,
                                           "--allow-restricted")
                self.assertTrue(self.is_sanitary(self.path("out")))
                face, written = FreeTypeFace(read(font)), FreeTypeFace(data)
                self.assertEqual(written.glyph_count(), source["maxp"].numGlyphs)
                for gid in [0] + [row["id"] for row in summary["map"]]:
                    self.assertEqual(written.drawn(gid), face.drawn(gid), gid)
                face.close()
                written.close()

    def test_parts_of_composites_are_kept_and_other_glyphs_are_empty(self):
        font = seac(self.path("seac.otf"))
        data, _ = self.embed(font, "sfnt-all", "--text", "Á")
        self.assertTrue(self.is_sanitary(self.path("out")))
        source, written = FreeTypeFace(read(font)), FreeTypeFace(data)
        kept = {opened(font).getGlyphID(name) for name in (".notdef", "Aacute", "A", "acute")}
        for gid in range(opened(font)["maxp"].numGlyphs):
            if gid in kept:
                self.assertEqual(written.drawn(gid), source.drawn(gid), gid)
            else:
                self.assertEqual(written.drawn(gid)[1:], ([], []), gid)


class StartData:
    """The block of a CIDFontType 0 resource, taken apart."""

    def __init__(self, text):
        self.values = {}
        for key in ("GDBytes", "FDBytes", "CIDCount", "SubrCount", "SDBytes", "SubrMapOffset"):
            found = set(re.findall(rf"/{key} (\d+) def", text))
            assert len(found) == 1, key
            self.values[key] = int(found.pop())
        count, digits = re.search(r"\(Hex\) (\d+) StartData\n([0-9a-f\n]*)>\n%%EndData\n$",
                                  text).groups()
        assert all(len(line) <= 64 for line in digits.split("\n"))
        self.block = bytes.fromhex(digits)
        assert len(self.block) == int(count)

    def number(self, at, size):
        return int.from_bytes(self.block[at:at + size], "big")

    def entries(self, at, count, lead, size):
        """Each entry of a map: what stands before its offset, and the bytes that it leads to."""
        step = lead + size
        for i in range(count):
            here = at + i * step
            begin = self.number(here + lead, size)
            end = self.number(here + step + lead, size)
            yield self.number(here, lead), decrypted(self.block[begin:end])

    def charstrings(self):
        v = self.values
        return list(self.entries(0, v["CIDCount"], v["FDBytes"], v["GDBytes"]))

    def subrs(self):
        v = self.values
        return [s for _, s in self.entries(v["SubrMapOffset"], v["SubrCount"], 0, v["SDBytes"])]


def decrypted(data):
    """Charstring encryption without leading bytes (Adobe Type 1 Font Format, 7.3)."""
    plain, r = bytearray(), 4330
    for byte in data:
        plain.append(byte ^ (r >> 8))
        r = ((byte + r) * 52845 + 22719) & 0xFFFF
    return bytes(plain)


class WholeNumbers(list):
    def append(self, number):
        super().append(int(number) if isinstance(number, float) else number)


class WholeNumberExtractor(T2OutlineExtractor):
    """Draws with numbers that lost their fractions, as Type 1 has none."""

    def reset(self):
        super().reset()
        self.operandStack = WholeNumbers()


def without_fractions(font, gid):
    string = font["CFF "].cff[0].CharStrings[font.getGlyphName(gid)]
    string.outlineExtractor = WholeNumberExtractor
    return string


def outline_of(glyph_or_string):
    """Lines and curves with whole coordinates, each contour closed where it ends."""
    pen = RecordingPen()
    glyph_or_string.draw(RoundingPen(pen))
    return [row for row in pen.value if row[0] not in ("closePath", "endPath")]


class PostScriptTest(CffTest):
    def resource(self, font, text):
        data, summary = self.embed(font, "cid-ps", "--text", text)
        return data.decode("ascii"), summary["map"]

    def test_cids_count_the_glyphs_and_blank_ones_have_none(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                resource, rows = self.resource(font, text)
                self.assertEqual([row["id"] for row in rows], list(range(1, len(rows) + 1)))
                self.assertNotIn(0x20, [row["unicode"] for row in rows])
                self.assertIn(f"/CIDCount {len(rows) + 1} def\n", resource)

    def test_the_data_block_decodes_to_the_outlines_of_the_source(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                resource, rows = self.resource(font, text)
                block = StartData(resource)
                strings = block.charstrings()
                self.assertEqual(len(strings), len(rows) + 1)
                subrs = [T1CharString(s) for s in block.subrs()]
                source = TTFont(font)  # one of its own, since drawing is changed
                for row in rows:
                    _, data = strings[row["id"]]
                    string = T1CharString(data, subrs=subrs)
                    ours = outline_of(string)
                    theirs = outline_of(without_fractions(source, row["glyph"]))
                    self.assertEqual(self.joined(ours), self.joined(theirs), row)
                    self.assertEqual(string.width, row["width"], row)

    @staticmethod
    def joined(rows):
        """Without the lines that only close a contour, which Type 1 leaves to its reader."""
        out, start = [], None
        for i, (operator, points) in enumerate(rows):
            if operator == "moveTo":
                start = points
            last = i + 1 == len(rows) or rows[i + 1][0] == "moveTo"
            if not (operator == "lineTo" and last and points == start):
                out.append((operator, points))
        return out

    def test_font_dicts_are_those_of_the_glyphs(self):
        for font, text in ((cid_keyed(), LATIN), (noto_cjk(), CJK)):
            with self.subTest(font=font):
                resource, rows = self.resource(font, text)
                top = opened(font)["CFF "].cff[0]
                self.assertIn(f"/FDArray {len(top.FDArray)} array\n", resource)
                strings = StartData(resource).charstrings()
                dicts = [strings[row["id"]][0] for row in rows]
                self.assertEqual(dicts, [top.FDSelect[row["glyph"]] for row in rows])
                self.assertGreater(len(set(dicts)), 1)

    SQUARE = ("-dDEVICEWIDTHPOINTS=600", "-dDEVICEHEIGHTPOINTS=600")

    def test_ghostscript_sets_the_glyphs_of_the_source(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                resource, rows = self.resource(font, text)
                rows = rows[:48]
                name = re.search(r"/CIDFontName /(\S+) def", resource)[1]
                matrix = float(re.search(r"/FontMatrix \[(\S+)", resource)[1])
                unit = self.SIZE / opened(font)["head"].unitsPerEm
                head = f"{resource}/F /Identity-H [/{name}] composefont pop\n"
                head += f"/F {unit / matrix} selectfont\n"
                shown = self.picture(head, [f"0 0 moveto <{row['id']:04x}> show" for row in rows])
                traced = self.picture(head, [f"0 0 moveto <{row['id']:04x}> false charpath fill"
                                             for row in rows])
                paths = [f"{unit} dup scale " + path_of(opened(font), row["glyph"])
                         for row in rows]
                filled = self.picture("", paths)
                self.assertGreater(filled.ink(), 255 * 2000)
                self.assertLess(traced.apart(filled), 0.05)
                self.assertLess(shown.apart(filled), 0.15)  # it is hinted
                shifted = self.picture("1 0 translate", paths)
                self.assertGreater(shifted.apart(filled), 0.2)

    SIZE = 60

    def picture(self, head, glyphs):
        """Ghostscript's picture of glyphs in rows of eight."""
        with open(self.path("page.ps"), "w", encoding="ascii") as out:
            out.write(f"%!PS\n{head}\n")
            for i, glyph in enumerate(glyphs):
                out.write(f"gsave {20 + i % 8 * 70} {20 + i // 8 * 95} translate {glyph}\n"
                          "grestore\n")
            out.write("showpage\n")
        return by_ghostscript(self.path("page.ps"), 72, "-dDEVICEWIDTHPOINTS=600",
                              "-dDEVICEHEIGHTPOINTS=600")


class DocumentTest(CffTest):
    def typeset(self, font, text, out, size="40"):
        source = self.path("text.txt")
        with open(source, "w", encoding="utf-8") as file:
            file.write(text)
        summary = run(QXFONT, "typeset", source, "--font", font, "--size", size, "-o",
                      self.path(out), "--json")
        return json.loads(summary)

    def test_documents_are_sound_and_give_their_text_back(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                summary = self.typeset(font, text, "out.pdf", size="20")
                self.assertEqual(summary["missing"], [])
                self.assertEqual([f["form"] for f in summary["fonts"]], ["cff"])
                run("qpdf", "--check", self.path("out.pdf"))
                rows = run("pdffonts", self.path("out.pdf")).decode().split("\n")[2:]
                self.assertRegex(rows[0],
                                 r"^[A-Z]{6}\+\S+ +CID Type 0C +Identity-H +yes yes yes")
                given = run("pdftotext", "-raw", self.path("out.pdf"), "-").decode()
                self.assertEqual(given.split(), text.split())

    DOTS = 150

    def test_poppler_and_ghostscript_show_the_same_in_pdf_and_postscript(self):
        for font, text in self.both_kinds():
            with self.subTest(font=font):
                self.typeset(font, text, "out.pdf")
                self.typeset(font, text, "out.ps")
                pictures = [by_poppler(self.path("out.pdf"), self.DOTS)]
                for out in ("out.pdf", "out.ps"):
                    pictures.append(by_ghostscript(self.path(out), self.DOTS))
                self.assertGreater(pictures[0].ink(), 255 * 1000)
                self.assertLess(pictures[1].apart(pictures[2]), 0.05)
                self.assertLess(pictures[0].apart_at_best(pictures[1]), 0.2)

    def test_a_mixed_document_has_both_kinds_of_font(self):
        lato = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
        summary = self.typeset(NIMBUS, f"Serif\n\n#font {lato}\nSans", "out.pdf")
        self.assertEqual([f["form"] for f in summary["fonts"]], ["cff", "sfnt"])
        self.assertEqual(run("pdftotext", "-raw", self.path("out.pdf"), "-").decode().split(),
                         ["Serif", "Sans"])

    def test_postscript_takes_no_truetype_font(self):
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write("a")
        run(QXFONT, "typeset", self.path("text.txt"), "--font",
            "/usr/share/fonts/truetype/lato/Lato-Regular.ttf", "-o", self.path("out.ps"), status=2)
        self.assertFalse(os.path.exists(self.path("out.ps")))


if __name__ == "__main__":
    unittest.main()
