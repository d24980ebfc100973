#!/usr/bin/env python3
"""Web fonts beside the fonts that they were packed from, read and written.

They are packed by fontTools and by sfnt2woff, which are other software, and what qxfont packs is
read by fontTools and by the OpenType Sanitizer. The variable QXFONT names the program; ctest sets
it.
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
import zlib

from fontTools.ttLib import TTFont

QXFONT = os.environ["QXFONT"]
LATO = "/usr/share/fonts/truetype/lato/Lato-Regular.ttf"
DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
DEJAVU_MONO_BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Bold.ttf"
IPA = "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"
SOURCES = (LATO, DEJAVU, DEJAVU_MONO_BOLD, IPA)
TEXT = "Sphinx of quartz, À Žlutý жук 中文字形ひらがな「」"
HEADER, ENTRY = 44, 20

logging.getLogger("fontTools").setLevel(logging.ERROR)


def installed():
    """Every font file, whatever else is installed."""
    return sorted(path for kind in ("ttf", "otf")
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

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_tool(self, *arguments, status=0):
        done = subprocess.run([QXFONT, *arguments], capture_output=True, timeout=300, check=False)
        self.assertEqual(done.returncode, status, f"{arguments}\n{done.stderr.decode()}")
        return done.stdout.decode("utf-8")

    def json(self, *arguments):
        return json.loads(self.run_tool(*arguments, "--json"))


class ReadTest(WebFontTest):
    def pack_by_fonttools(self, source):
        packed = self.path("fonttools.woff")
        with TTFont(source, lazy=True, recalcBBoxes=False, recalcTimestamp=False) as font:
            font.flavor = "woff"
            font.save(packed, reorderTables=False)
        return packed

    def pack_by_sfnt2woff(self, source):
        copy = self.path("copy" + os.path.splitext(source)[1])
        shutil.copyfile(source, copy)
        subprocess.run(["sfnt2woff", copy], capture_output=True, check=True)
        return os.path.splitext(copy)[0] + ".woff"

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
            self.run_tool("embed", path, "--form", "sfnt-cmap", "--text", TEXT,
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
                    out = self.path("out.ttf")
                    packed = pack(source)
                    self.run_tool("embed", packed, "--form", "stream", "--allow-restricted",
                                  "-o", out)
                    self.assertEqual(tables_of(out), tables_of(packed))

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
            web = self.write(source)
            out = self.path("back.ttf")
            os.rename(web, web + ".woff")
            self.run_tool("embed", web + ".woff", "--form", "stream", "--allow-restricted", "-o", out)
            self.assertEqual(tables_of(out), tables_of(self.write(source, form="sfnt-all")))

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

    def test_the_sanitizer_takes_the_conforming_form_of_every_font_that_it_takes_itself(self):
        taken = 0
        out = self.path("out.woff")
        for path in installed():
            if not self.sanitizes(path):
                continue
            with self.subTest(path=path):
                self.run_tool("embed", path, "--form", "woff", "--gids", "0,1",
                              "--allow-restricted", "-o", out)
                self.assertTrue(self.sanitizes(out), path)
                os.remove(out)
                taken += 1
        self.assertGreaterEqual(taken, len(SOURCES))

    def test_members_of_collections_are_written(self):
        zen_hei = "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc"
        for more in ([], ["--as-specified"]):
            packed = tables_of(self.write(zen_hei, *more, face=1))
            self.assertEqual(packed, tables_of(self.write(zen_hei, *more, form="sfnt-all", face=1)))


if __name__ == "__main__":
    unittest.main()
