#!/usr/bin/env python3
"""`qxfont scan` and `doctor`, what a terminal shows, and all fonts of this machine beside fontTools.

The variable QXFONT names the program; ctest sets it.
"""

import errno
import fcntl
import glob
import json
import os
import pty
import re
import select
import shutil
import struct
import subprocess
import tempfile
import termios
import time
import unittest

from fontTools.ttLib import TTCollection, TTFont

import qxfont_test as tool
from qxfont_test import (CONFIGURATION, DONE, INTERRUPTED, LATO, LATO_REGULAR, NO_MATCH,
                         WRONG_CALL, QxfontTest)

FONT_READ, FONT_FILE = 1921, 1928


class ScanTest(QxfontTest):
    FACE_KEYS = ["file", "entry", "family", "full_name", "postscript_name", "weight", "italic",
                 "stretch", "file_type", "seconds"]

    def scan(self, *more, **status):
        return self.run_tool("scan", "d", "--only", "d", *more, **status)

    def setUp(self):
        super().setUp()
        os.makedirs(self.path("d/sub"))

    def broken_folder(self):
        """A font, and all that a folder may hold beside it."""
        shutil.copy(LATO_REGULAR, self.path("d/sub/good.ttf"))
        with open(LATO_REGULAR, "rb") as file:
            font = file.read()
        self.write("d/cut.ttf", font[:3000])
        self.write("d/empty.ttf", b"")
        self.write("d/readme.txt", "no font")
        os.mkfifo(self.path("d/pipe.ttf"))
        os.symlink(self.path("d"), self.path("d/sub/up"))
        os.symlink("self", self.path("d/self"))
        os.symlink("/no/such/file.ttf", self.path("d/dangling.ttf"))
        return ["cut.ttf", "dangling.ttf", "empty.ttf", "pipe.ttf", "readme.txt", "self"]

    def test_keys_stand_in_order(self):
        self.broken_folder()
        result = self.scan("--json").json()
        self.assertEqual(list(result), ["fonts", "refused", "seconds"])
        self.assertEqual(list(result["fonts"][0]), self.FACE_KEYS)
        for row in result["refused"]:
            self.assertEqual(list(row), ["file", "code", "message"])
        self.assertGreater(result["seconds"], 0)

    def test_every_file_is_a_font_or_refused_with_its_reason(self):
        refused = self.broken_folder()
        result = self.scan("--json").json()
        self.assertEqual([row["file"] for row in result["fonts"]], ["d/sub/good.ttf"])
        self.assertEqual(result["fonts"][0]["postscript_name"], "Lato-Regular")
        self.assertEqual([os.path.basename(row["file"]) for row in result["refused"]], refused)
        for row in result["refused"]:
            self.assertIn(row["code"], (FONT_READ, FONT_FILE), row)
            self.assertTrue(row["message"])
            self.assertNotIn("\n", row["message"])

    @unittest.skipIf(os.geteuid() == 0, "every file is readable for root")
    def test_what_may_not_be_read_is_refused(self):
        shutil.copy(LATO_REGULAR, self.path("d/locked.ttf"))
        os.chmod(self.path("d/locked.ttf"), 0)
        os.mkdir(self.path("d/closed"), 0)
        files = [row["file"] for row in self.scan("--json").json()["refused"]]
        os.chmod(self.path("d/closed"), 0o700)
        self.assertEqual(files, ["d/locked.ttf", "d/closed"])

    def test_an_empty_folder(self):
        os.mkdir(self.path("none"))
        result = self.run_tool("scan", "none", "--only", LATO, "--json").json()
        self.assertEqual((result["fonts"], result["refused"]), ([], []))

    def test_rows_one_a_line(self):
        self.broken_folder()
        whole = self.scan("--json").json()
        rows = [json.loads(line) for line in self.scan("--ndjson").out.strip().split("\n")]
        for row in rows + whole["fonts"]:
            row.pop("seconds", None)
        self.assertEqual(rows, whole["fonts"] + whole["refused"])

    def test_people_see_tables_and_a_sum(self):
        refused = self.broken_folder()
        lines = self.scan().out.strip().split("\n")
        self.assertRegex(lines[0], r"^file +face +kind +ms +full name$")
        self.assertRegex(lines[1], r"^d/sub/good\.ttf +0 +TrueType +\d+\.\d +Lato Regular$")
        self.assertRegex(lines[2], r"^refused +code +why$")
        self.assertRegex(lines[-1], rf"^1 faces, {len(refused)} files refused, \d+\.\d{{3}} s$")

    def test_a_folder_that_is_none(self):
        self.run_tool("scan", "/no/such/folder", status=WRONG_CALL)
        self.run_tool("scan", LATO_REGULAR, status=WRONG_CALL)
        self.run_tool("scan", status=WRONG_CALL)


class DoctorTest(QxfontTest):
    def config(self, *folders):
        inside = "".join(f'<font-folder path="{folder}"/>' for folder in folders)
        return self.write("c.xml", f'<font-config windows-registry="disable">{inside}'
                                   "</font-config>")

    def test_all_is_well(self):
        config = self.config(LATO)
        result = self.run_tool("doctor", "--json", "--config", config).json()
        faces = len(glob.glob(LATO + "/*.ttf"))
        self.assertEqual(result, {
            "config": config, "folders": [{"path": LATO + "/", "files": faces, "faces": faces}],
            "errors": [], "advice": []})
        self.assertEqual(list(result), ["config", "folders", "errors", "advice"])
        self.assertEqual(list(result["folders"][0]), ["path", "files", "faces"])

    def test_what_opening_collected_is_shown_whole(self):
        os.mkdir(self.path("d"))
        with open(LATO_REGULAR, "rb") as file:
            self.write("d/cut.ttf", file.read()[:3000])
        config = self.config(LATO, LATO, self.path("d"))
        done = self.run_tool("doctor", "--json", "--config", config)
        self.assertEqual(done.err, "", "the command shows its warnings itself")
        result = done.json()
        for row in result["errors"]:
            self.assertEqual(list(row), ["code", "message"])
        told = self.run_tool("list", "--config", config).err
        self.assertEqual(told, f"{len(result['errors'])} warnings, see qxfont doctor\n")
        self.assertEqual(len(result["advice"]), 2)
        self.assertIn(config, result["advice"][0])
        self.assertIn(self.path("d/cut.ttf"), result["advice"][1])
        text = self.run_tool("doctor", "--config", config).out
        for row in result["errors"]:
            self.assertIn(f"{row['code']} {row['message']}", text)
        for line in result["advice"]:
            self.assertIn("advice: " + line, text)
        self.assertIn("configuration  " + config, text)

    def test_unpaired_type_1_files(self):
        os.mkdir(self.path("d"))
        for name in ("pair.afm", "pair.pfb", "lonely.afm", "alone.pfa"):
            self.write("d/" + name, "x")
        config = self.config(self.path("d"))
        advice = self.run_tool("doctor", "--json", "--config", config).json()["advice"]
        self.assertTrue(any("lonely.afm has metrics without outlines" in line for line in advice))
        self.assertTrue(any("alone.pfa is not found without metrics" in line for line in advice))
        text = self.run_tool("doctor", "--config", config).out
        unpaired = text.split("\n2 unpaired Type 1 files\n")[1].split("\n\n")[0].splitlines()
        self.assertEqual(unpaired, ["  " + self.path("d/" + name)
                                    for name in ("alone.pfa", "lonely.afm")])

    def test_single_folders_are_no_configuration(self):
        result = self.run_tool("doctor", "--json", "--only", LATO, "--add", tool.IPA)
        self.assertEqual(list(result.json()), ["folders", "errors", "advice"])
        self.assertEqual([row["path"] for row in result.json()["folders"]],
                         [LATO + "/", tool.IPA + "/"])
        self.assertNotIn("font-config.xml", result.out)

    def test_without_a_font(self):
        os.mkdir(self.path("none"))
        result = self.run_tool("doctor", "--json", "--only", "none").json()
        self.assertEqual(len(result["advice"]), 1)
        self.assertIn("no font was found", result["advice"][0])

    def test_a_configuration_that_cannot_be_read(self):
        self.run_tool("doctor", "--config", "/no.xml", status=CONFIGURATION)
        bad = self.write("bad.xml", "<font-config></font-config>")
        self.run_tool("doctor", "--config", bad, status=CONFIGURATION)


class TerminalTest(QxfontTest):
    """The tool on a terminal of its own."""

    def on_terminal(self, *arguments, which=("out", "err"), interrupt=None, columns=100, **more):
        """Runs the tool with those of its outputs on a terminal; gives its status, what the
        terminal showed, and what the file in the place of the other output took."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 30, columns, 0, 0))
        beside = tempfile.TemporaryFile()
        self.addCleanup(beside.close)
        process = subprocess.Popen(
            [tool.QXFONT, *arguments], cwd=self.folder, env=tool.environment(**more),
            stdout=slave if "out" in which else beside, stderr=slave if "err" in which else beside)
        os.close(slave)
        shown = self.read_terminal(master, process, interrupt)
        process.wait(timeout=60)
        os.close(master)
        beside.seek(0)
        return process.returncode, shown.decode("utf-8"), beside.read().decode("utf-8")

    @staticmethod
    def read_terminal(master, process, interrupt):
        shown = b""
        deadline = time.monotonic() + 120
        while time.monotonic() < deadline:
            if not select.select([master], [], [], 0.1)[0]:
                continue
            try:
                read = os.read(master, 65536)
            except OSError as error:  # how Linux tells that the other end is closed
                if error.errno != errno.EIO:
                    raise
                break
            if not read:
                break
            shown += read
            if interrupt is not None and interrupt in shown:
                process.send_signal(2)
                interrupt = None
        return shown

    @classmethod
    def setUpClass(cls):
        """A folder with enough files for the bar to appear, however fast the machine is."""
        cls.top = tempfile.mkdtemp(prefix="qxfont-many-")
        cls.addClassCleanup(shutil.rmtree, cls.top, ignore_errors=True)
        cls.many = os.path.join(cls.top, "many")
        os.makedirs(cls.many)
        shutil.copy(LATO_REGULAR, os.path.join(cls.top, "font"))
        cls.count, taken = 0, 0
        while taken < 1 and cls.count < 50000:
            cls.add_fonts(1000)
            start = time.monotonic()
            subprocess.run([tool.QXFONT, "match", "Lato", "--only", cls.many], check=True,
                           env=tool.environment(), capture_output=True)
            taken = time.monotonic() - start

    @classmethod
    def add_fonts(cls, more):
        for number in range(cls.count, cls.count + more):
            os.link(os.path.join(cls.top, "font"), os.path.join(cls.many, f"{number}.ttf"))
        cls.count += more

    def test_titles_are_bold_on_a_terminal_only(self):
        status, shown, _ = self.on_terminal("list", "--only", LATO)
        self.assertEqual(status, DONE)
        self.assertTrue(shown.startswith("\033[1mfamily"), shown[:80])
        self.assertNotIn("\033[1m", self.run_tool("list", "--only", LATO).out)

    def test_no_color_is_respected(self):
        _, shown, _ = self.on_terminal("list", "--only", LATO, NO_COLOR="1")
        self.assertNotIn("\033[1m", shown)
        _, shown, _ = self.on_terminal("list", "--only", LATO, NO_COLOR="")
        self.assertIn("\033[1m", shown)

    def test_json_on_a_terminal_has_no_colour(self):
        _, shown, _ = self.on_terminal("list", "--only", LATO, "--json", which=("out",))
        self.assertEqual(len(json.loads(shown)), len(glob.glob(LATO + "/*.ttf")))

    def test_short_work_shows_no_bar(self):
        for _ in range(100):  # on a busy machine nothing is short at times
            start = time.monotonic()
            _, shown, _ = self.on_terminal("match", "Lato", "--only", LATO, which=("err",))
            if time.monotonic() - start < 0.3:
                self.assertEqual(shown, "")
                return
        self.fail("no run took less than 0.3 s")

    def test_long_opening_shows_files_faces_and_the_folder_and_wipes_them(self):
        status, shown, out = self.on_terminal("match", "Lato", "--json", "--only", self.many,
                                              which=("err",))
        self.assertEqual(status, DONE)
        json.loads(out)
        lines = re.findall(r"\r\033\[Kopening (\d+) files, (\d+) faces  (\S+)", shown)
        self.assertTrue(lines, shown)
        counts = [int(files) for files, _, _ in lines]
        self.assertEqual(counts, sorted(counts))
        self.assertEqual({folder for _, _, folder in lines},
                         {os.path.realpath(self.many) + "/"})
        self.assertTrue(shown.endswith("\r\033[K"))

    def test_a_line_is_cut_to_the_width_of_the_terminal(self):
        _, shown, _ = self.on_terminal("match", "Lato", "--only", self.many, which=("err",),
                                       columns=24)
        lines = [line for line in shown.split("\r\033[K") if line]
        self.assertTrue(lines)
        self.assertLess(max(map(len, lines)), 24)

    def test_no_bar_where_standard_error_is_no_terminal(self):
        _, shown, err = self.on_terminal("match", "Lato", "--only", self.many, which=("out",))
        self.assertEqual(err, "")
        self.assertNotIn("opening", shown)

    def test_scanning_shows_a_bar(self):
        os.mkdir(self.path("none"))
        _, shown, _ = self.on_terminal("scan", self.many, "--only", "none", which=("err",))
        self.assertRegex(shown, rf"\r\033\[Kscanning \[#*\.*\] \d+/{self.count}")

    def test_an_interrupt_while_the_bar_stands(self):
        temporary = self.path("tmp")
        os.mkdir(temporary)
        status, _, _ = self.on_terminal("match", "Lato", "--only", self.many, which=("err",),
                                        interrupt=b"opening ", TMPDIR=temporary)
        self.assertEqual(status, INTERRUPTED)
        self.assertEqual(os.listdir(temporary), [])


# Folders with all fonts that are installed.
FONT_FOLDERS = [folder for folder in ("/usr/share/fonts", "/usr/local/share/fonts")
                if os.path.isdir(folder)]
# The kinds of files that are compared: all that both sides read.
SINGLE, COLLECTIONS = (".ttf", ".otf"), (".ttc",)
SLOTS = {1: "family", 4: "full_name", 6: "postscript_name"}
MAC_CODE_PAGES = {0: "cp1252", 1: "cp932", 2: "cp950", 3: "cp949", 25: "cp936"}
WINDOWS_CODE_PAGES = {2: "cp932", 3: "gb2312", 4: "big5", 5: "cp949"}
FOUND_BY = (1, 3, 6, 16)
ENGLISH = 0x409


def windows_text(record):
    """The text of a Windows record; None for one with control characters."""
    data = record.string if isinstance(record.string, bytes) else record.toBytes()
    data = data[:len(data) // 2 * 2]
    if record.platEncID in WINDOWS_CODE_PAGES and not any(data[::2]):
        return data[1::2].decode(WINDOWS_CODE_PAGES[record.platEncID], "replace")
    text = data.decode("utf-16-be", "replace").split("\0")[0]
    return None if re.search(r"[\x01-\x1f\x7f-\x9f]", text) else text


class FaceNames:
    """The names of a face, read from fontTools' records by the rules of this service: Windows
    names before those of the Macintosh, of which the family alone stands in when there is no
    other name."""

    def __init__(self, font, mac_style):
        self.sets = {}
        for every_mac_name in ([True] if mac_style else [False, True]):
            if self.read_all(font["name"].names, every_mac_name):
                break

    def read_all(self, records, every_mac_name):
        found = False
        for record in records:
            if record.platformID == 1 and record.platEncID in MAC_CODE_PAGES:
                if not every_mac_name and record.nameID not in (1, 20):
                    continue
                text = record.string.decode(MAC_CODE_PAGES[record.platEncID], "replace")
            elif record.platformID == 3 and record.platEncID <= 5 and record.langID:
                text = windows_text(record)
            else:
                continue
            if text is None:
                continue
            found = found or record.nameID in FOUND_BY
            if text and record.nameID in SLOTS:
                self.sets.setdefault(record.langID, {}).setdefault(record.nameID, text)
        return found

    def get(self, slot):
        default = ENGLISH if ENGLISH in self.sets else min(self.sets, default=None)
        for language in [default, *sorted(self.sets)]:
            name = self.sets.get(language, {}).get(slot, "")
            if name:
                return name
        return ""


def members(path):
    """The faces of a file; fontTools knows how many there are."""
    if path.lower().endswith(COLLECTIONS):
        return list(TTCollection(path).fonts)
    return [TTFont(path)]


def weight_of(font):
    if "OS/2" not in font:
        return 700 if font["head"].macStyle & 1 else 400
    os2 = font["OS/2"]
    return os2.usWeightClass * (100 if os2.version < 3 and os2.usWeightClass < 10 else 1)


def italic_of(font):
    bits = font["OS/2"].fsSelection & 1 if "OS/2" in font else font["head"].macStyle & 2
    return bool(bits) or font["post"].italicAngle != 0


def face_facts(path, entry, font):
    names = FaceNames(font, "OS/2" not in font)
    return {"file": path, "entry": entry, "weight": weight_of(font), "italic": italic_of(font),
            **{key: names.get(slot) for slot, key in SLOTS.items()}}


class MachineTest(QxfontTest):
    """All fonts that are installed here."""

    def installed(self, *kinds):
        found = []
        for top in FONT_FOLDERS:
            for folder, _, names in os.walk(top, followlinks=True):
                found += [os.path.join(folder, n) for n in names if n.lower().endswith(kinds)]
        return sorted(found)

    def scanned(self):
        rows, refused = [], []
        os.mkdir(self.path("none"))
        for folder in FONT_FOLDERS:
            result = self.run_tool("scan", folder, "--json", "--only", "none",
                                   LC_ALL="en_US.UTF-8").json()
            rows += result["fonts"]
            refused += result["refused"]
        return rows, refused

    def test_faces_names_and_styles_are_those_that_fonttools_reads(self):
        rows, refused = self.scanned()
        kinds = SINGLE + COLLECTIONS
        # A collection has faces with `glyf` outlines only.
        with_cff = [path for path in self.installed(*COLLECTIONS)
                    if any("CFF " in font for font in members(path))]
        wanted = [face_facts(path, entry, font) for path in self.installed(*kinds)
                  if path not in with_cff for entry, font in enumerate(members(path))]
        self.assertGreater(len(wanted), 20, "the fonts that the tests need are not installed")
        keys = list(wanted[0])
        got = [{key: row[key] for key in keys} for row in rows
               if row["file"].lower().endswith(kinds)]
        self.assertEqual(sorted(row["file"] for row in refused
                                if row["file"].lower().endswith(kinds)), with_cff)
        place = lambda row: (row["file"], row["entry"])
        self.assertEqual([place(row) for row in sorted(got, key=place)],
                         [place(row) for row in sorted(wanted, key=place)])
        for mine, theirs in zip(sorted(got, key=place), sorted(wanted, key=place)):
            with self.subTest(place=place(mine)):
                self.assertEqual(mine, theirs)

    def test_no_file_that_is_no_font_is_taken_for_one(self):
        rows, _ = self.scanned()
        kinds = SINGLE + COLLECTIONS + (".dfont", ".woff", ".afm", ".pfm", ".pfa", ".pfb")
        self.assertEqual([row["file"] for row in rows if not row["file"].lower().endswith(kinds)],
                         [])

    def test_an_unknown_name_among_all_fonts(self):
        result = self.run_tool("match", "No Such Font Anywhere", status=NO_MATCH)
        self.assertRegex(result.err.split("\n")[-3], r"among \d+ faces$")


if __name__ == "__main__":
    unittest.main()
