#!/usr/bin/env python3
"""Web fonts beside the fonts that they were packed from, read and written.

They are packed by fontTools and by sfnt2woff, which are other software, and what qxfont packs is
read by fontTools and by the OpenType Sanitizer. The variable QXFONT names the program; ctest sets
it.
"""

import base64
import glob
import html.parser
import json
import logging
import os
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
import zlib
from unittest import mock

from fontTools.ttLib import TTCollection, TTFont, newTable
from fontTools.ttLib.sfnt import WOFFDirectoryEntry, WOFFFlavorData

QXFONT = os.environ["QXFONT"]
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
LATO_BOLD_ITALIC = "/usr/share/fonts/truetype/lato/Lato-BoldItalic.ttf"
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
DEJAVU_MONO_BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Bold.ttf"
IPA = "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"
GARAMOND = "/usr/share/fonts/opentype/ebgaramond/EBGaramond08-Regular.otf"
ZEN_HEI = "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc"
SOURCES = (LATO, DEJAVU, DEJAVU_MONO_BOLD, IPA, GARAMOND)
TEXT = "Sphinx of quartz, À Žlutý жук 中文字形ひらがな「」"
HEADER, ENTRY = 44, 20

logging.getLogger("fontTools").setLevel(logging.ERROR)


def installed(*kinds):
    """Every font file of some kinds, whatever else is installed."""
    return sorted(path for kind in kinds
                  for path in glob.glob(f"/usr/share/fonts/**/*.{kind}", recursive=True))


def tables_of(path):
    with TTFont(path, lazy=True) as font:
        return {tag: font.reader[tag] for tag in font.reader.keys()}


class WoffFile:
    """A WOFF file taken apart by hand, since fontTools does not tell how it is laid out."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        head = struct.unpack(">4sIIHHIHHIIIII", self.bytes[:HEADER])
        self.signature, self.flavor, self.length, self.count = head[:4]
        self.total_sfnt_size = head[5]
        self.rest = (head[4], *head[6:])
        self.entries = [struct.unpack_from(">4sIIII", self.bytes, HEADER + ENTRY * i)
                        for i in range(self.count)]

    def table(self, entry):
        _, offset, stored, original, _ = entry
        data = self.bytes[offset:offset + stored]
        return data if stored == original else zlib.decompress(data)


class WebFontTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        os.mkdir(self.path("none"))

    def path(self, name):
        return os.path.join(self.folder, name)

    def call(self, *arguments, status=0, only=None):
        """Runs the tool over a folder of fonts, by default an empty one."""
        done = subprocess.run([QXFONT, *arguments, "--only", only or self.path("none")],
                              capture_output=True, timeout=300, check=False)
        self.assertEqual(done.returncode, status, f"{arguments}\n{done.stderr.decode()}")
        return done.stdout.decode("utf-8"), done.stderr.decode("utf-8")

    def run_tool(self, *arguments, **more):
        return self.call(*arguments, **more)[0]

    def json(self, *arguments, **more):
        return json.loads(self.run_tool(*arguments, "--json", **more))

    def unpacked(self, packed):
        """The tables as they are read; of a font with CFF there is that one alone."""
        out = self.path("unpacked.ttf")
        self.run_tool("embed", packed, "--form", "stream", "--allow-restricted", "-o", out)
        with open(out, "rb") as file:
            whole = file.read()
        return {"CFF ": whole} if whole[0] == 1 else tables_of(out)

    def assert_unpacks_to(self, packed, font):
        tables, expected = self.unpacked(packed), tables_of(font)
        if "CFF " in expected:
            expected = {"CFF ": expected["CFF "]}
        self.assertEqual(tables, expected)

    def pack_by_fonttools(self, source, change=lambda font: None):
        packed = self.path("fonttools.woff")
        with TTFont(source, lazy=True, recalcBBoxes=False, recalcTimestamp=False) as font:
            font.flavor = "woff"
            change(font)
            font.save(packed, reorderTables=False)
        return packed

    def pack_by_sfnt2woff(self, source, *more):
        copy = self.path("copy" + os.path.splitext(source)[1])
        shutil.copyfile(source, copy)
        subprocess.run(["sfnt2woff", *more, copy], capture_output=True, check=True)
        return os.path.splitext(copy)[0] + ".woff"


class ReadTest(WebFontTest):
    def assert_answers_like(self, packed, source):
        web, font = self.json("info", packed), self.json("info", source)
        font["style"]["stretch"] = 5  # what the document says counts, and that has no stretch
        for part in ("style", "embedding", "metrics"):
            self.assertEqual(web[part], font[part])
        for more in ([], ["--size", "12"], ["--vertical"]):
            self.assertEqual(self.json("glyphs", packed, TEXT, *more),
                             self.json("glyphs", source, TEXT, *more))
        forms = []
        for path in (packed, source):
            out = self.path("form.ttf")
            self.run_tool("embed", path, "--form", "sfnt-all", "--text", TEXT,
                          "--allow-restricted", "-o", out)
            forms.append(tables_of(out))
        self.assertEqual(*forms)

    def test_packed_fonts_answer_like_their_sources(self):
        for source in SOURCES:
            for pack in (self.pack_by_fonttools, self.pack_by_sfnt2woff):
                with self.subTest(source=source, pack=pack.__name__):
                    self.assert_answers_like(pack(source), source)

    def test_unpacked_tables_are_those_of_the_source(self):
        for source in SOURCES:
            for pack in (self.pack_by_fonttools, self.pack_by_sfnt2woff):
                with self.subTest(source=source, pack=pack.__name__):
                    self.assert_unpacks_to(pack(source), source)

    def test_metadata_and_private_blocks_are_passed_over(self):
        metadata, private = b'<metadata version="1.0"></metadata>', bytes(range(256))
        for name, data in (("meta.xml", metadata), ("private", private)):
            with open(self.path(name), "wb") as file:
                file.write(data)

        def add_metadata(font):  # fontTools writes no private block: it stumbles over its padding
            font.flavorData = WOFFFlavorData()
            font.flavorData.metaData = metadata

        packed = self.pack_by_fonttools(LATO, add_metadata)
        self.assertEqual(WoffFile(packed).rest[5], len(metadata))
        self.assert_unpacks_to(packed, LATO)
        packed = self.pack_by_sfnt2woff(LATO, "-m", self.path("meta.xml"), "-p",
                                        self.path("private"), "-v", "7.3")
        rest = WoffFile(packed).rest
        self.assertEqual((*rest[1:3], rest[5], rest[7]), (7, 3, len(metadata), len(private)))
        self.assert_unpacks_to(packed, LATO)

    def test_tables_without_bytes_are_tables(self):
        def add_empty(font):
            font["ZERO"] = newTable("ZERO")
            font["ZERO"].data = b""

        packed = self.pack_by_fonttools(LATO, add_empty)
        self.assertIn((0, 0), [entry[2:4] for entry in WoffFile(packed).entries])
        tables = self.unpacked(packed)
        self.assertEqual(tables["ZERO"], b"")
        self.assertEqual(tables, tables_of(packed))

    def test_tables_that_are_not_deflated(self):
        with mock.patch.object(WOFFDirectoryEntry, "zlibCompressionLevel", 0, create=True):
            packed = self.pack_by_fonttools(LATO)
        for entry in WoffFile(packed).entries:
            self.assertEqual(entry[2], entry[3])
        self.assertEqual(self.unpacked(packed), tables_of(packed))

    def test_members_of_collections(self):
        with TTCollection(ZEN_HEI, lazy=True) as collection:
            collection.fonts[1].flavor = "woff"
            collection.fonts[1].save(self.path("member.woff"), reorderTables=None)
        self.assertEqual(self.json("glyphs", self.path("member.woff"), TEXT),
                         self.json("glyphs", ZEN_HEI, TEXT, "--face", "1"))

    def test_web_fonts_of_packages_are_read(self):
        for path in glob.glob("/usr/share/fonts*/**/*.woff", recursive=True):
            with self.subTest(path=path), TTFont(path, lazy=True) as font:
                metrics = self.json("info", path)["metrics"]
                self.assertEqual(metrics["units_per_em"], font["head"].unitsPerEm)

    def test_woff2_is_refused(self):
        path = self.path("two.woff")
        with open(path, "wb") as file:
            file.write(b"wOF2" + bytes(100))
        self.run_tool("info", path, status=3)


def checksum(data):
    data += bytes(-len(data) % 4)
    return sum(struct.unpack(f">{len(data) // 4}I", data)) & 0xFFFFFFFF


class WriteTest(WebFontTest):
    def write(self, source, *more, form="woff", face=0):
        out = self.path(form)
        self.run_tool("embed", source, "--face", str(face), "--form", form, "--text", TEXT,
                      "--allow-restricted", "-o", out, *more)
        return out

    def test_the_specified_form_is_the_specified_subset_packed(self):
        for source in SOURCES:
            with self.subTest(source=source):
                file = WoffFile(self.write(source, "--as-specified"))
                subset = self.write(source, "--as-specified", form="sfnt-all")
                with open(subset, "rb") as read:
                    sfnt = read.read()
                self.assertEqual((file.signature, file.length), (b"wOFF", len(file.bytes)))
                self.assertEqual(file.flavor, int.from_bytes(sfnt[:4], "big"))
                self.assertEqual(file.total_sfnt_size, len(sfnt))
                self.assertEqual(file.rest, (0, 1, 0, 0, 0, 0, 0, 0))
                position = HEADER + ENTRY * file.count
                for i, entry in enumerate(file.entries):
                    tag, offset, stored, original, check = entry
                    record = struct.unpack_from(">4sIII", sfnt, 12 + 16 * i)
                    self.assertEqual((tag, check, original), (record[0], record[1], record[3]))
                    table = sfnt[record[2]:record[2] + original]
                    self.assertEqual(file.table(entry), table)
                    self.assertEqual(offset, position, "no padding")
                    self.assertEqual(stored, min(len(zlib.compress(table, 6)), original))
                    position += stored
                self.assertEqual(position, len(file.bytes))

    def test_fonttools_reads_both_forms(self):
        for source in SOURCES:
            for more in ([], ["--as-specified"]):
                with self.subTest(source=source, more=more):
                    packed = tables_of(self.write(source, *more))
                    subset = tables_of(self.write(source, *more, form="sfnt-all"))
                    self.assertEqual(packed, subset)

    def test_what_is_written_is_read_back(self):
        for source in SOURCES:
            for more in ([], ["--as-specified"]):
                with self.subTest(source=source, more=more):
                    web = self.write(source, *more)
                    os.rename(web, web + ".woff")
                    self.assert_unpacks_to(web + ".woff",
                                           self.write(source, *more, form="sfnt-all"))

    def test_two_runs_give_the_same_bytes(self):
        for more in ([], ["--as-specified"]):
            first = WoffFile(self.write(LATO, *more)).bytes
            self.assertEqual(WoffFile(self.write(LATO, *more)).bytes, first)

    def test_the_conforming_form_is_laid_out_as_the_format_asks_for(self):
        for source in SOURCES:
            with self.subTest(source=source):
                file = WoffFile(self.write(source))
                position = HEADER + ENTRY * file.count
                total = 12 + 16 * file.count
                for entry in file.entries:
                    tag, offset, stored, original, check = entry
                    self.assertEqual(offset, position)
                    position += stored + -stored % 4
                    total += original + -original % 4
                    table = file.table(entry)
                    if tag == b"head":
                        table = table[:8] + bytes(4) + table[12:]
                    self.assertEqual(check, checksum(table), tag)
                self.assertEqual((position, file.length), (len(file.bytes),) * 2)
                self.assertEqual(total, file.total_sfnt_size)

    def sanitizes(self, path):
        return subprocess.run(["ots-sanitize", path, "/dev/null"], capture_output=True,
                              check=False).returncode == 0

    def packed_for_the_sanitizer(self, source, alone, face=0):
        """The web font of a font that the sanitizer takes, of glyphs of all parts of it."""
        if not self.sanitizes(alone):
            return None
        with TTFont(alone, lazy=True) as font:
            count = font["maxp"].numGlyphs
        gids = ",".join(str(gid) for gid in {0, 1, *range(count // 3, count, count // 7 + 1)}
                        if gid < count)
        out = self.path("out.woff")
        self.run_tool("embed", source, "--face", str(face), "--form", "woff", "--gids", gids,
                      "--allow-restricted", "-o", out)
        return out

    def test_the_sanitizer_takes_the_conforming_form_of_every_font_that_it_takes_itself(self):
        taken = 0
        for path in installed("ttf", "otf"):
            with self.subTest(path=path):
                packed = self.packed_for_the_sanitizer(path, path)
                self.assertTrue(packed is None or self.sanitizes(packed))
                taken += packed is not None
        self.assertGreaterEqual(taken, 50)

    def test_the_sanitizer_takes_that_of_members_too(self):
        alone = self.path("alone.ttf")
        for path in installed("ttc", "otc"):
            with TTCollection(path) as collection:
                if any("CFF " in member for member in collection):
                    continue  # not read at all
                for face, member in enumerate(collection.fonts):
                    # The sanitizer wants tables in the order of their tags, and none of its own
                    # choice: it takes what it does not know as it takes it from the web font.
                    member.save(alone, reorderTables=None)
                    with self.subTest(path=path, face=face):
                        packed = self.packed_for_the_sanitizer(path, alone, face)
                        self.assertIsNotNone(packed)
                        self.assertTrue(self.sanitizes(packed))

    def test_members_of_collections_are_written(self):
        for more in ([], ["--as-specified"]):
            packed = tables_of(self.write(ZEN_HEI, *more, face=1))
            self.assertEqual(packed, tables_of(self.write(ZEN_HEI, *more, form="sfnt-all", face=1)))


class DocumentTest(WebFontTest):
    """A document's font goes before those of the system, whatever is asked."""

    def setUp(self):
        super().setUp()
        self.web = self.pack_by_fonttools(LATO_BOLD_ITALIC)
        self.declared = ["--document", self.web + "=DejaVu Sans:300"]

    def ask(self, *arguments, declared=None):
        return self.json(*arguments, *(declared or self.declared), only=os.path.dirname(DEJAVU))

    def test_it_answers_every_style_of_its_family(self):
        for more in ([], ["--weight", "700"], ["--italic"], ["--stretch", "3"]):
            match = self.ask("match", "DejaVu Sans", *more)
            self.assertEqual((match["file"], match["pool"]), (self.web, "extra"), more)
            self.assertEqual((match["family"], match["weight"]), ("DejaVu Sans", 300))
        self.assertEqual(self.ask("match", "DejaVu Serif")["pool"], "main")

    def test_every_command_takes_it(self):
        for command in (["info", "DejaVu Sans"], ["dump", "DejaVu Sans", "cmap"],
                        ["dump", "DejaVu Sans", "widths"], ["dump", "DejaVu Sans", "kern"],
                        ["glyphs", "DejaVu Sans", "AV"],
                        ["features", "DejaVu Sans", "--script", "latn"],
                        ["shape", "DejaVu Sans", "office", "--script", "latn"]):
            with self.subTest(command=command):
                ours = self.ask(*command)
                command[1] = self.web
                theirs = self.json(*command)
                if command[0] == "info":
                    theirs["style"]["weight"] = 300
                self.assertEqual(ours, theirs)

    def test_it_is_embedded_and_typeset(self):
        out = self.path("out.ttf")
        self.ask("embed", "DejaVu Sans", "--form", "sfnt", "--text", "AV", "-o", out)
        subset = tables_of(out)
        self.run_tool("embed", LATO_BOLD_ITALIC, "--form", "sfnt", "--text", "AV", "-o", out)
        self.assertEqual(subset, tables_of(out))
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write("Office")
        for kind, form in (("html", "woff"), ("pdf", "sfnt")):
            [font] = self.ask("typeset", self.path("text.txt"), "--font", "DejaVu Sans", "-o",
                              self.path("out." + kind))["fonts"]
            self.assertEqual((font["family"], font["file"], font["form"]),
                             ("DejaVu Sans", self.web, form))

    def test_a_font_with_cff_is_taken_too(self):
        declared = ["--document", self.pack_by_fonttools(GARAMOND) + "=One"]

        def ours(*call):
            return self.ask(*call, declared=declared)

        text = ("--text", "AV", "--allow-restricted", "-o", self.path("out"))
        for form in ("cff", "sfnt-all", "woff"):
            written = []
            for ask, font in ((ours, "One"), (self.json, GARAMOND)):
                ask("embed", font, "--form", form, *text)
                with open(self.path("out"), "rb") as file:
                    written.append(file.read() if form == "cff" else tables_of(file.name))
            self.assertEqual(*written, form)
        self.assertEqual(ours("outline", "One", "U+0041"),
                         self.json("outline", GARAMOND, "U+0041"))

    def test_it_is_listed_first_under_the_name_inside(self):
        first = self.ask("list")[0]
        self.assertEqual((first["family"], first["weight"], first["italic"]), ("Lato", 700, True))
        self.assertIn("faces", self.run_tool("doctor", *self.declared))

    def test_without_a_declared_style_it_has_its_own(self):
        for text, weight, italic in (("=Mine", 700, True), ("=Mine:400", 400, True),
                                     ("=Mine:italic", 700, True), ("=Mine:900:italic", 900, True)):
            match = self.ask("match", "Mine", declared=["--document", self.web + text])
            self.assertEqual((match["weight"], match["italic"]), (weight, italic), text)

    def test_one_file_may_have_two_names_and_keeps_its_first_style(self):
        declared = ["--document", self.web + "=One:300", "--document", self.web + "=Two:900"]
        for name in ("One", "Two"):
            match = self.ask("match", name, declared=declared)
            self.assertEqual((match["family"], match["weight"]), ("One", 300))

    def test_of_two_files_of_one_name_the_first_answers(self):
        other = self.pack_by_sfnt2woff(LATO_BOLD_ITALIC)
        declared = ["--document", self.web + "=One:400", "--document", other + "=One:400"]
        self.assertEqual(self.ask("match", "One", declared=declared)["file"], self.web)

    def test_that_it_may_not_be_embedded_is_told_and_it_stays(self):
        def restrict(font):
            font["OS/2"].fsType = 2

        packed = self.pack_by_fonttools(LATO, restrict)
        out, said = self.call("match", "One", "--document", packed + "=One")
        self.assertTrue(out.startswith("One (weight 400, width 5)\n"), out)
        self.assertEqual(said, f"qxfont: Unembeddable font-face font.: {packed}\n")

    def test_what_is_no_font_is_told(self):
        for content, said in ((None, "Cannot open font-face font."),
                              (b"", "Font read error."),
                              (bytes(44), "Font file error: Invalid WOFF header.")):
            path = self.path("bad.woff")
            if content is not None:
                with open(path, "wb") as file:
                    file.write(content)
            _, told = self.call("list", "--document", path + "=One", status=3)
            self.assertEqual(told, f"qxfont: {said}: {path}\n")
        path = self.path("text.xyz")
        with open(path, "wb") as file:
            file.write(b"text")
        _, told = self.call("list", "--document", path + "=One", status=3)
        self.assertEqual(told, f"qxfont: Cannot create font-face font.: {path}\n")


class PageText(html.parser.HTMLParser):
    """The lines of a page, and the classes of the runs on them."""

    def __init__(self):
        super().__init__()
        self.lines, self.classes = [], []

    def handle_starttag(self, tag, attributes):
        if tag == "div":
            self.lines.append("")
        elif tag == "span":
            self.classes.append(dict(attributes)["class"])

    def handle_data(self, data):
        if self.lines:
            self.lines[-1] += data.strip("\n")


class HtmlTest(WebFontTest):
    """Pages of text; that they are shown so is the matter of another test."""

    def typeset(self, text, *more, status=0):
        with open(self.path("text.txt"), "w", encoding="utf-8") as file:
            file.write(text)
        out, said = self.call("typeset", self.path("text.txt"), "-o", self.path("out.html"),
                              "--json", *more, status=status)
        if status != 0:
            self.assertFalse(os.path.exists(self.path("out.html")))
            return said, None, None
        with open(self.path("out.html"), encoding="utf-8") as file:
            page = file.read()
        text = PageText()
        text.feed(page)
        return json.loads(out), text, page

    def fonts_of(self, page):
        for number, data in enumerate(re.findall(r"font/woff;base64,([^)]*)", page)):
            path = self.path(f"{number}.woff")
            with open(path, "wb") as file:
                file.write(base64.b64decode(data, validate=True))
            yield path

    def test_the_text_is_text_line_by_line(self):
        text = "Tom & \"Jerry\" <said>: it's &amp; fluffy, " + "again and again " * 20
        _, page, _ = self.typeset(text, "--font", LATO)
        self.assertGreater(len(page.lines), 3)
        self.assertEqual(" ".join(page.lines), text.strip())
        self.assertTrue(all(line == line.strip() for line in page.lines))

    def test_lines_in_both_directions_are_in_the_order_in_which_they_are_read(self):
        text = "abc (שלום 12) def\n\nשלום abc"
        _, page, source = self.typeset(text, "--font", DEJAVU)
        self.assertEqual(page.lines, text.split("\n\n"))
        self.assertEqual(source.count(' dir="rtl" style='), 1)

    def test_each_run_is_in_the_font_that_has_it(self):
        summary, page, source = self.typeset("ab猫c\n\n#font " + DEJAVU + "\nd", "--font", LATO,
                                             "--font", IPA)
        self.assertEqual(page.classes, ["f0", "f1", "f0", "f2"])
        fonts = list(self.fonts_of(source))
        self.assertEqual([os.path.getsize(path) for path in fonts],
                         [font["bytes"] for font in summary["fonts"]])
        for path, source_path, character in zip(fonts, (LATO, IPA, DEJAVU), "a猫d"):
            self.assertTrue(self.sanitizes(path))
            with TTFont(path) as web, TTFont(source_path) as font:
                name = font.getBestCmap()[ord(character)]
                self.assertEqual(web.getBestCmap()[ord(character)], name)
                self.assertEqual(web["glyf"][name], font["glyf"][name])

    def sanitizes(self, path):
        return subprocess.run(["ots-sanitize", path, "/dev/null"], capture_output=True,
                              check=False).returncode == 0

    def test_a_character_that_is_missing_is_told_and_stays_text(self):
        summary, page, _ = self.typeset("a猫b", "--font", LATO)
        self.assertEqual(summary["missing"], ["U+732B"])
        self.assertEqual(page.lines, ["a猫b"])
        self.assertEqual(page.classes, ["f0", "missing", "f0"])

    def test_rights_are_respected(self):
        def restrict(font):
            font["OS/2"].fsType = 2

        packed = self.pack_by_fonttools(LATO, restrict)
        said, _, _ = self.typeset("a", "--font", packed, status=4)
        self.assertIn("may not be embedded", said)
        _, page, _ = self.typeset("a", "--font", packed, "--allow-restricted")
        self.assertEqual(page.lines, ["a"])

    def test_two_runs_give_the_same_bytes(self):
        pages = [self.typeset("a\n\n#font " + DEJAVU + "\nb", "--font", LATO)[2] for _ in range(2)]
        self.assertEqual(*pages)

    def test_other_names_are_a_wrong_call(self):
        for name in ("out.htm", "out.HTML", "out"):
            self.call("typeset", LATO, "--font", LATO, "-o", self.path(name), status=2)


if __name__ == "__main__":
    unittest.main()
