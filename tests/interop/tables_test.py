#!/usr/bin/env python3
"""Lays whole tables, as `qxfont dump` tells them, beside those that fontTools reads, over every
installed TrueType and OpenType file and over fonts of rare kinds that are made here; and subsets
beside their sources.

The variable QXFONT names the program; ctest sets it. Where the two must differ, the difference is
the test.
"""

import collections
import concurrent.futures
import glob
import io
import json
import logging
import os
import re
import shutil
import struct
import subprocess
import tempfile
import unittest

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTCollection, TTFont
from fontTools.ttLib.tables.DefaultTable import DefaultTable
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable

QXFONT = os.environ["QXFONT"]
DEJAVU_SANS = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
TABLES = ("cmap", "widths", "kern", "classes", "variations")
TEXT = "Hamburgefonstiv ÄéĂ 0123 猫あ"

# Encodings that take part, beside those of the Unicode platform.
ENCODINGS = {1: (0, 1, 2, 3, 25), 3: (0, 1, 2, 3, 4, 5, 10)}
LOOKED_UP = (12, 4, 2, 0)  # in the order of preference
logging.getLogger("fontTools").setLevel(logging.ERROR)


def installed(*extensions):
    """Every installed font file of these kinds, each once."""
    listed = subprocess.run(["fc-list", "-f", "%{file}\n"], capture_output=True, check=True)
    paths = {os.path.realpath(path) for path in listed.stdout.decode().split("\n") if path}
    return sorted(path for path in paths if path.lower().endswith(extensions))


def installed_members():
    """Every face of the installed collections; those with CFF outlines are none of the service."""
    faces = []
    for path in installed(".ttc"):
        with TTCollection(path, lazy=True) as collection:
            faces += [(path, face) for face, font in enumerate(collection.fonts) if "glyf" in font]
    return faces


class ToolTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.empty = self.path("no-fonts")
        os.mkdir(self.empty)

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_tool(self, *arguments, status=0):
        done = subprocess.run([QXFONT, *arguments, "--only", self.empty], capture_output=True,
                              timeout=300, check=False)
        self.assertEqual(done.returncode, status, f"{arguments} {done.stderr.decode()}")
        return done

    def dump(self, font, what, *more):
        """The table with its keys as numbers, or tuples of them."""
        rows = json.loads(self.run_tool("dump", font, what, "--json", *more).stdout)
        return {key_of(key): value for key, value in rows.items()}

    def over(self, fonts, check):
        """Runs a check for each font, a few at a time."""
        self.assertTrue(fonts)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for font, failure in zip(fonts, pool.map(lambda one: failure_of(check, one), fonts)):
                with self.subTest(font=font):
                    if failure:
                        raise failure


def failure_of(check, font):
    try:
        check(font)
    except Exception as failure:  # told by the test that asked
        return failure
    return None


def key_of(key):
    numbers = tuple(int(number) for number in key.split(","))
    return numbers if len(numbers) > 1 else numbers[0]


# What the service's rules make of the tables that fontTools has read.


def takes_part(table, all_of_unicode):
    if table.platformID == 0:
        return all_of_unicode or table.platEncID > 2
    return table.platEncID in ENCODINGS.get(table.platformID, ())


def first_of_each_format(tables):
    held = {}
    for table in tables:
        if table.format in (*LOOKED_UP, 14):
            held.setdefault(table.format, table)
    return held


def held_of(font):
    return held_subtables(font["cmap"].tables, "OS/2" in font)


def held_subtables(all_tables, has_os2):
    """Windows and Macintosh subtables come before those of the Unicode platform, of which (0, 3)
    stands in where no other has its format. Fonts without OS/2 know no such order."""
    tables = [one for one in all_tables if takes_part(one, False)]
    put_off = [one for one in tables if (one.platformID, one.platEncID) == (0, 3)]
    held = first_of_each_format([one for one in tables if one not in put_off])
    if has_os2 and any(number in held for number in LOOKED_UP):
        return first_of_each_format([*held.values(), *put_off])
    return first_of_each_format([one for one in all_tables if takes_part(one, True)])


def expected_cmap(font):
    held = held_of(font)
    table = next((held[number] for number in LOOKED_UP if number in held), None)
    if table is None:
        return {}
    glyphs = {code: font.getGlyphID(name) for code, name in table.cmap.items()}
    if is_symbolic(table):
        glyphs = {code: glyphs[as_symbol(code)] for code in range(0x110000)
                  if as_symbol(code) in glyphs}
    return {code: glyph for code, glyph in glyphs.items() if glyph != 0}


def is_symbolic(table):
    """Whether the first mapped code lies in the private range of symbol fonts."""
    return (table.platformID, table.platEncID) in ((3, 0), (3, 1)) and \
        min(table.cmap) & 0xF000 == 0xF000 and table.format in (4, 12)


def as_symbol(code):
    return code if code & 0xF000 else code | 0xF000


def expected_widths(font):
    widths = font["hmtx"].metrics
    return {glyph: widths[name][0] for glyph, name in enumerate(font.getGlyphOrder())}


def expected_kern(font):
    """The first subtable of format 0, in horizontal or vertical text but not across it."""
    if "kern" not in font:
        return {}
    first = font["kern"].kernTables[0]
    if first.coverage & 3 not in (0, 1):
        return {}
    return {(font.getGlyphID(left), font.getGlyphID(right)): value
            for (left, right), value in first.kernTable.items()}


def expected_classes(font):
    classes = font["GDEF"].table.GlyphClassDef if "GDEF" in font else None
    defined = classes.classDefs if classes else {}
    return {font.getGlyphID(name): number for name, number in defined.items()}


def expected_variations(font):
    table = held_of(font).get(14)
    ordinary = expected_cmap(font)
    sequences = {}
    for selector, listed in (table.uvsDict if table else {}).items():
        for code, name in listed:
            glyph = font.getGlyphID(name) if name is not None else ordinary.get(code)
            if glyph is not None:
                sequences[code, selector] = glyph
    return sequences


Record = collections.namedtuple("Record", "platformID platEncID format start")


def expected_chars(font):
    """The most characters that a subtable says it maps, whatever their glyphs are."""
    data = font.reader["cmap"]
    places = [struct.unpack(">HHL", data[at:at + 8])
              for at in range(4, 4 + 8 * struct.unpack(">H", data[2:4])[0], 8)]
    records = [Record(*place[:2], *struct.unpack(">H", data[place[2]:place[2] + 2]), place[2])
               for place in places]
    held = held_subtables(records, "OS/2" in font)
    return max(COUNTED[number](data[record.start:]) for number, record in held.items()
               if number in COUNTED)


def counted_bytes(data):
    return 1 + sum(glyph != 0 for glyph in data[6:262])


def counted_segments(data):
    """Those before the first that ends at 0xFFFF."""
    count = struct.unpack(">H", data[6:8])[0] // 2
    ends = struct.unpack(f">{count}H", data[14:14 + 2 * count])
    starts = struct.unpack(f">{count}H", data[16 + 2 * count:16 + 4 * count])
    stop = ends.index(0xFFFF)
    return sum(end - start + 1 for start, end in zip(starts[:stop], ends[:stop]))


def counted_groups(data):
    count = struct.unpack(">L", data[12:16])[0]
    groups = struct.unpack(f">{3 * count}L", data[16:16 + 12 * count])
    return sum(groups[1::3]) - sum(groups[::3]) + count


COUNTED = {0: counted_bytes, 4: counted_segments, 12: counted_groups}

EXPECTED = {"cmap": expected_cmap, "widths": expected_widths, "kern": expected_kern,
            "classes": expected_classes, "variations": expected_variations}


class InstalledFontsTest(ToolTest):
    def test_whole_tables(self):
        self.over(installed(".ttf", ".otf"), lambda path: self.check_tables(path, -1))

    def test_whole_tables_of_members(self):
        faces = installed_members()
        if not faces:
            self.skipTest("no TrueType collection is installed")
        self.over(faces, lambda member: self.check_tables(*member))

    def check_tables(self, path, face):
        more = ["--face", str(face)] if face >= 0 else []
        with TTFont(path, lazy=True, fontNumber=face) as font:
            for what in TABLES:
                self.assertTrue(self.dump(path, what, *more) == EXPECTED[what](font), what)
            facts = json.loads(self.run_tool("info", path, "--json", *more).stdout)
            self.assertEqual(facts["embedding"]["chars"], expected_chars(font))


class DumpTest(ToolTest):
    """How the command prints."""

    def test_forms_of_output(self):
        rows = self.dump(DEJAVU_SANS, "kern")
        lines = self.run_tool("dump", DEJAVU_SANS, "kern", "--ndjson").stdout.decode().split("\n")
        self.assertEqual(lines.pop(), "")
        each = [json.loads(line) for line in lines]
        self.assertEqual({key_of(key): value for row in each for key, value in row.items()}, rows)
        self.assertEqual(len(each), len(rows))
        shown = self.run_tool("dump", DEJAVU_SANS, "cmap").stdout.decode().split("\n")
        self.assertEqual(shown[0].split(), ["character", "glyph"])
        self.assertEqual(shown[1].split(), ["U+0020", "3"])

    def test_keys_rise(self):
        for what in TABLES:
            rows = list(self.dump(DEJAVU_SANS, what))
            self.assertEqual(rows, sorted(rows), what)

    def test_a_table_that_is_not_there_is_empty(self):
        self.assertEqual(self.run_tool("dump", DEJAVU_SANS, "variations", "--json").stdout, b"{}\n")
        self.assertEqual(self.run_tool("dump", DEJAVU_SANS, "variations", "--ndjson").stdout, b"")

    def test_wrong_calls(self):
        for call in (["dump"], ["dump", DEJAVU_SANS], ["dump", DEJAVU_SANS, "glyf"],
                     ["dump", DEJAVU_SANS, ""], ["dump", "/no/such.ttf", "nonsense"]):
            self.assertEqual(self.run_tool(*call, status=2).stdout, b"")
        said = self.run_tool("dump", DEJAVU_SANS, "x", status=2).stderr.decode()
        self.assertIn("hint: tables: " + ", ".join(TABLES), said)
        self.run_tool("dump", "/no/such.ttf", "cmap", status=3)
        self.run_tool("dump", "No Such Font", "cmap", status=1)


def square():
    pen = TTGlyphPen(None)
    pen.moveTo((0, 0))
    for point in ((0, 500), (500, 500), (500, 0)):
        pen.lineTo(point)
    pen.closePath()
    return pen.glyph()


def subtable(number, platform, encoding, glyphs):
    table = CmapSubtable.newSubtable(number)
    table.platformID, table.platEncID, table.language = platform, encoding, 0
    table.cmap = glyphs
    return table


def sequences(listed):
    table = subtable(14, 0, 5, {})
    table.uvsDict = listed
    return table


def made_font(*tables, names=("a", "b", "c", "d")):
    """A small font with these subtables."""
    order = [".notdef", *names]
    builder = FontBuilder(1000)
    builder.setupGlyphOrder(order)
    builder.setupCharacterMap({})
    builder.setupGlyf({name: square() for name in order})
    builder.setupHorizontalMetrics({name: (100 * i, 0) for i, name in enumerate(order)})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable({"familyName": "Made", "styleName": "Regular"})
    builder.setupOS2()
    builder.setupPost()
    builder.font["cmap"].tables = list(tables)
    return builder.font


class RareKindsTest(ToolTest):
    """Fonts that no package has."""

    def saved(self, font, name="made.ttf"):
        font.save(self.path(name))
        return self.path(name)

    def check(self, font):
        """As the rules say, of the file as it was written."""
        path = self.saved(font)
        with TTFont(path) as written:
            for what in TABLES:
                self.assertEqual(self.dump(path, what), EXPECTED[what](written), what)

    def test_the_choice_of_subtables(self):
        a, b = {0x61: "a", 0x62: "b"}, {0x61: "c", 0x64: "d"}
        beyond = {0x61: "b", 0x1F600: "d"}
        for tables in ([subtable(4, 3, 1, a)], [subtable(12, 3, 10, beyond)],
                       [subtable(4, 3, 1, a), subtable(12, 3, 10, beyond)],
                       [subtable(4, 0, 3, a), subtable(4, 3, 1, b)], [subtable(4, 0, 3, a)],
                       [subtable(4, 0, 1, a), subtable(4, 3, 1, b)], [subtable(4, 0, 1, a)],
                       [subtable(4, 0, 4, a), subtable(4, 3, 1, b)],
                       [subtable(4, 0, 3, a), subtable(0, 1, 0, b)], [subtable(0, 1, 0, a)],
                       [subtable(0, 1, 0, a), subtable(4, 3, 1, b)],
                       [subtable(4, 3, 0, a), subtable(4, 3, 1, b)],
                       [subtable(6, 1, 0, a), subtable(4, 3, 1, b)],
                       [subtable(4, 1, 7, a), subtable(4, 3, 7, a), subtable(0, 1, 0, b)]):
            with self.subTest(tables=[(one.platformID, one.platEncID, one.format)
                                      for one in tables]):
                self.check(made_font(*tables))

    def test_a_font_without_os2_takes_all_of_the_unicode_platform_in_file_order(self):
        font = made_font(subtable(4, 0, 1, {0x61: "a"}), subtable(4, 3, 1, {0x61: "b"}))
        del font["OS/2"]
        self.check(font)
        self.assertEqual(self.dump(self.path("made.ttf"), "cmap"), {0x61: 1})

    def test_symbol_fonts(self):
        self.check(made_font(subtable(4, 3, 0, {0xF041: "a", 0xF07A: "b"})))
        self.assertEqual(self.dump(self.path("made.ttf"), "cmap"),
                         {0x41: 1, 0x7A: 2, 0xF041: 1, 0xF07A: 2})
        self.check(made_font(subtable(4, 3, 0, {0x41: "a"})))
        self.check(made_font(subtable(12, 3, 0, {0xF041: "a", 0xF143: "c"})))

    def test_variation_sequences(self):
        listed = {0xFE00: [(0x61, None), (0x62, "d")], 0xE0100: [(0x62, None), (0x63, None)]}
        font = made_font(sequences(listed), subtable(4, 3, 1, {0x61: "a", 0x62: "b"}))
        self.check(font)
        self.assertEqual(self.dump(self.path("made.ttf"), "variations"),
                         {(0x61, 0xFE00): 1, (0x62, 0xFE00): 4, (0x62, 0xE0100): 2})

    def test_codes_of_the_east_asian_encodings(self):
        for encoding, codes in ((2, {"A": 0x41, "あ": 0x82A0, "猫": 0x944C}),
                                (3, {"A": 0x41, "猫": 0xC3A8, "·": 0xA1A4, "—": 0xA1AA}),
                                (4, {"A": 0x41, "中": 0xA4A4, "貓": 0xBFDF}),
                                (5, {"A": 0x41, "가": 0xB0A1, "한": 0xC7D1})):
            with self.subTest(encoding=encoding):
                glyphs = dict(zip(codes.values(), "abcd"))
                wanted = {ord(character): 1 + "abcd".index(glyphs[code])
                          for character, code in codes.items()}
                dumped = self.dump(self.saved(made_font(subtable(4, 3, encoding, glyphs))), "cmap")
                self.assertEqual({code: dumped.get(code) for code in wanted}, wanted)

    def test_codes_of_the_macintosh_scripts(self):
        for encoding, character, code in ((1, "猫", 0x944C), (2, "貓", 0xBFDF), (3, "가", 0xB0A1),
                                          (25, "猫", 0xC3A8)):
            with self.subTest(encoding=encoding):
                font = made_font(subtable(4, 1, encoding, {0x41: "a", code: "b"}))
                dumped = self.dump(self.saved(font), "cmap")
                self.assertEqual((dumped[0x41], dumped[ord(character)]), (1, 2))

    def test_kerning(self):
        for coverage in range(4):
            with self.subTest(coverage=coverage):
                font = made_font(subtable(4, 3, 1, {0x61: "a"}))
                kern = DefaultTable("kern")
                pairs = struct.pack(">HHhHHh", 1, 2, -40, 2, 1, 30)
                kern.data = struct.pack(">HHHHHHHHH", 0, 1, 0, 26, coverage, 2, 12, 1, 0) + pairs
                font["kern"] = kern
                expected = {(1, 2): -40, (2, 1): 30} if coverage < 2 else {}
                self.assertEqual(self.dump(self.saved(font), "kern"), expected)

    def test_the_last_metric_is_shared(self):
        font = made_font(subtable(4, 3, 1, {0x61: "a"}))
        font["hmtx"].metrics = {name: (300, 0) for name in font.getGlyphOrder()}
        self.check(font)

    def test_glyph_classes(self):
        font = made_font(subtable(4, 3, 1, {0x61: "a"}))
        gdef = DefaultTable("GDEF")
        gdef.data = struct.pack(">HHHHHH", 1, 0, 12, 0, 0, 0) + \
            struct.pack(">HHHHHHHH", 2, 2, 1, 2, 1, 4, 4, 3)
        font["GDEF"] = gdef
        self.assertEqual(self.dump(self.saved(font), "classes"), {1: 1, 2: 1, 4: 3})


def sanitizes(path):
    done = subprocess.run(["ots-sanitize", path, "/dev/null"], capture_output=True, check=False)
    return done.returncode == 0


def glyph_data(font):
    """The bytes of each glyph."""
    locations, data = font["loca"].locations, font.reader["glyf"]
    return [data[begin:end] for begin, end in zip(locations, locations[1:])]


def closure(font, glyphs):
    kept, new = set(), {0} | set(glyphs)
    while new:
        kept |= new
        shapes = [font["glyf"][font.getGlyphName(glyph)] for glyph in new]
        parts = [part.glyphName for shape in shapes if shape.isComposite()
                 for part in shape.components]
        new = {font.getGlyphID(part) for part in parts} - kept
    return kept


def has_outlines(path):
    with TTFont(path, lazy=True) as font:
        return "glyf" in font


class SubsetTest(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.fonts = [path for path in installed(".ttf", ".otf") if has_outlines(path)]

    def embed(self, path, form, *more):
        out = self.path(path.replace("/", "_") + "." + form)
        summary = self.run_tool("embed", path, "--form", form, "--text", TEXT, "-o", out, "--json",
                                "--allow-restricted", *more).stdout
        return out, json.loads(summary)

    def test_kept_glyphs_are_there_byte_for_byte_and_the_others_are_empty(self):
        self.over(self.fonts, self.check_glyphs)

    def check_glyphs(self, path):
        out, summary = self.embed(path, "sfnt")
        with TTFont(path, lazy=True) as source, open(out, "rb") as file:
            subset = TTFont(io.BytesIO(file.read()))
            kept = closure(source, [row["id"] for row in summary["map"]])
            wanted = [glyph if i in kept else b"" for i, glyph in enumerate(glyph_data(source))]
            self.assertTrue(glyph_data(subset) == wanted, path)

    def test_strict_readers_take_the_subsets_of_fonts_that_they_take(self):
        if shutil.which("ots-sanitize") is None:
            self.skipTest("the OpenType Sanitizer is not installed")
        sound = [path for path in installed(".ttf", ".otf") if sanitizes(path)]
        self.over(sound, lambda path: self.assertTrue(sanitizes(self.embed(path, "sfnt-all")[0]),
                                                      path))

    def test_the_specified_bytes_are_others(self):
        """All tables but glyf and loca as they were, checkSumAdjustment too: kept, though strict
        readers complain."""
        out, _ = self.embed(DEJAVU_SANS, "sfnt-all", "--as-specified")
        with TTFont(DEJAVU_SANS, lazy=True) as source, TTFont(out, lazy=True) as subset:
            adjustment = source["head"].checkSumAdjustment
            for tag in source.reader.tables:
                if tag not in ("glyf", "loca"):
                    self.assertTrue(source.reader[tag] == subset.reader[tag], tag)
        out, _ = self.embed(DEJAVU_SANS, "sfnt-all")
        with TTFont(out, lazy=True) as subset:
            self.assertNotEqual(subset["head"].checkSumAdjustment, adjustment)

    def test_the_sfnt_beside_glyph_files(self):
        """Its search fields are those of a directory with glyf and loca: kept, though they are not
        in it."""
        out, summary = self.embed(DEJAVU_SANS, "ps-glyphs")
        with open(os.path.join(out, "font.sfnt"), "rb") as file:
            font = file.read()
        self.assertEqual(struct.unpack(">4H", font[4:12]), (8, 0x80, 3, 0x10))
        records = [struct.unpack(">4sLLL", font[at:at + 16]) for at in range(12, 12 + 8 * 16, 16)]
        self.assertEqual([record[0] for record in records],
                         [b"cvt ", b"fpgm", b"gdir", b"head", b"hhea", b"hmtx", b"maxp", b"prep"])
        with TTFont(DEJAVU_SANS, lazy=True) as source:
            for tag, _, offset, length in records:
                body = source.reader[tag.decode()] if tag != b"gdir" else b""
                self.assertTrue(font[offset:offset + length] == body, tag)
            data = glyph_data(source)
            drawn_glyphs = [glyph for glyph in closure(source, [row["id"] for row in summary["map"]])
                            if data[glyph]]
        self.assertEqual(sorted(os.listdir(out)), ["font.sfnt"] + sorted(
            f"glyph{glyph:05}.bin" for glyph in drawn_glyphs))
        for glyph in drawn_glyphs:
            with open(os.path.join(out, f"glyph{glyph:05}.bin"), "rb") as file:
                self.assertTrue(file.read() == data[glyph], glyph)

    def test_subsets_look_as_their_sources(self):
        """FreeType draws the kept letters alike, and of the others nothing."""
        fonts = [DEJAVU_SANS, *glob.glob("/usr/share/fonts/truetype/lato/Lato-Regular.ttf"),
                 *glob.glob("/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf")]
        for path in fonts:
            for form, more in (("sfnt-cmap", []), ("svg2", []), ("sfnt-all", []),
                               ("sfnt-all", ["--as-specified"])):
                with self.subTest(path=path, form=form, more=more):
                    out, _ = self.embed(path, form, *more)
                    self.assertEqual(drawn(out, "Hambé"), drawn(path, "Hambé"))
                    self.assertEqual(set(drawn(out, "XYZ")) - {""}, set())
                    self.assertNotEqual(set(drawn(path, "XYZ")) - {""}, set())


def drawn(path, text):
    """The outlines of a text, glyph by glyph."""
    done = subprocess.run(["hb-view", "--font-funcs=ft", "--features=-kern", "--font-size=1000",
                           "--output-format=svg", path, text], capture_output=True, check=True)
    return re.findall(r' d="([^"]*)"', done.stdout.decode())


if __name__ == "__main__":
    unittest.main()
