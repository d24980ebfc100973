#!/usr/bin/env python3
"""Runs the built qxfont over installed fonts and lays its answers beside those of other software.

The variable QXFONT names the program; ctest sets it.
"""

import glob
import io
import json
import logging
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.ttLib import TTFont

QXFONT = os.environ["QXFONT"]
HERE = os.path.dirname(os.path.abspath(__file__))
DEMO = os.path.join(HERE, "..", "..", "examples", "demo.txt")

LATO = "/usr/share/fonts/truetype/lato"
DEJAVU = "/usr/share/fonts/truetype/dejavu"
IPA = "/usr/share/fonts/opentype/ipafont-gothic"
LATO_REGULAR = f"{LATO}/Lato-Regular.ttf"
DEJAVU_SANS = f"{DEJAVU}/DejaVuSans.ttf"
IPA_GOTHIC = f"{IPA}/ipag.ttf"

# The fonts that the tests are about, whatever else is installed.
SOURCES = ("--only", LATO, "--only", DEJAVU, "--only", IPA)
NO_GLYPH = 0xFFFF

SOURCE_FONTS = {}
logging.getLogger("fontTools").setLevel(logging.ERROR)

DONE, NO_MATCH, WRONG_CALL, BAD_FONT, NOT_ALLOWED, CONFIGURATION, NOT_WRITTEN = range(7)
INTERRUPTED = 130


def environment(**more):
    clean = {k: v for k, v in os.environ.items() if k not in ("QXFONT_CONFIG", "SOURCE_DATE_EPOCH")}
    return {**clean, **more}


class Result:
    def __init__(self, done):
        self.status = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def json(self):
        return json.loads(self.out)


class QxfontTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        mode = "wb" if isinstance(content, bytes) else "w"
        with open(self.path(name), mode) as file:
            file.write(content)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def run_tool(self, *arguments, **more):
        """Runs the tool and looks at the status, 0 unless `status` says otherwise."""
        status = more.pop("status", DONE)
        done = subprocess.run([QXFONT, *arguments], env=environment(**more), cwd=self.folder,
                              capture_output=True, timeout=300, check=False)
        result = Result(done)
        self.assertEqual(result.status, status, f"{arguments}\n{result.out}\n{result.err}")
        return result

    def fonts(self, *arguments, **more):
        return self.run_tool(*arguments, *SOURCES, **more)

    def assert_no_output(self, *kept):
        """Nothing was written, not even a part."""
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(kept))


def source_font(path):
    """An installed font, read once."""
    if path not in SOURCE_FONTS:
        SOURCE_FONTS[path] = TTFont(path)
    return SOURCE_FONTS[path]


def set_fs_type(bits, font, target):
    with TTFont(font) as changed:
        changed["OS/2"].fsType = bits
        changed.save(target)
    return target


def outline(font, name):
    pen = DecomposingRecordingPen(font.getGlyphSet())
    font.getGlyphSet()[name].draw(pen)
    return pen.value


class CallTest(QxfontTest):
    """Statuses, their order, and what is said on standard error."""

    def assert_error(self, result, said, hint=None):
        lines = result.err.strip().split("\n")
        self.assertTrue(lines[0].startswith("qxfont: "), result.err)
        self.assertIn(said, lines[0])
        self.assertLessEqual(len(lines), 2, result.err)
        if hint is not None:
            self.assertTrue(lines[1].startswith("hint: "), result.err)
            self.assertIn(hint, lines[1])
        self.assertEqual(result.out, "")

    def test_version_names_what_it_runs_on(self):
        lines = self.run_tool("--version").out.split("\n")
        self.assertRegex(lines[0], r"^qxfont \d+\.\d+\.\d+$")
        self.assertEqual([line.split()[0] for line in lines[1:6]],
                         ["ICU", "FreeType", "zlib", "expat", "fontconfig"])

    def test_help_is_there_for_the_program_and_each_command(self):
        shown = self.run_tool("--help").out
        for command in ("list", "match", "info", "dump", "glyphs", "embed", "typeset",
                        "scan", "doctor"):
            self.assertIn(command, shown)
            self.assertIn("--only", self.run_tool(command, "--help").out)

    def test_wrong_calls(self):
        calls = [
            [], ["nonsense"], ["list", "--nonsense"], ["match"], ["match", "Lato", "x"],
            ["match", "Lato", "--weight", "0"], ["match", "Lato", "--weight", "heavy"],
            ["match", "Lato", "--stretch", "10"], ["match", "Lato", "--face", "1"],
            ["match", ""], ["glyphs", "Lato"], ["list", "--only", "/no/such/folder"],
            ["list", "--add", "/no/such/folder"], ["list", "--only", LATO, "--config", "x"],
        ]
        for call in calls:
            with self.subTest(call=call):
                result = self.run_tool(*call, status=WRONG_CALL)
                self.assertTrue(result.err.startswith("qxfont: "))
                self.assertEqual(result.out, "")

    def test_options_stand_anywhere(self):
        wanted = self.fonts("match", "Lato", "--italic", "--json").out
        for call in (["--json", "match", "--italic", "Lato", *SOURCES],
                     ["--italic", *SOURCES, "match", "Lato", "--json"],
                     [*SOURCES, "--json", "match", "Lato", "--italic"]):
            self.assertEqual(self.run_tool(*call).out, wanted)

    def test_a_text_that_is_the_name_of_a_command_is_a_text(self):
        glyphs = self.fonts("glyphs", "Lato", "list", "--json").json()["glyphs"]
        self.assertEqual([chr(row["code"]) for row in glyphs], list("list"))

    def test_a_name_that_no_font_has(self):
        result = self.fonts("match", "Latoo", status=NO_MATCH)
        faces = len(self.fonts("list", "--json").json())
        self.assert_error(result, f"'Latoo' among {faces} faces", "Lato")
        self.fonts("list", "Latoo", status=NO_MATCH)
        self.fonts("info", "Latoo", status=NO_MATCH)

    def test_a_file_that_is_not_there_or_no_font(self):
        self.assert_error(self.run_tool("info", "/no/such.ttf", status=BAD_FONT), "/no/such.ttf")
        self.write("empty.ttf", b"")
        self.write("text.ttf", "this is no font, whatever its name says")
        with open(LATO_REGULAR, "rb") as file:
            self.write("cut.ttf", file.read()[:5000])
        for name in ("empty.ttf", "text.ttf", "cut.ttf"):
            with self.subTest(name=name):
                self.assert_error(self.run_tool("info", name, status=BAD_FONT), name)

    def test_a_face_that_a_file_does_not_have(self):
        result = self.run_tool("info", LATO_REGULAR, "--face", "3", status=NO_MATCH)
        self.assert_error(result, "has no face 3", "from 0")

    def test_a_file_in_the_current_folder_is_taken_for_a_path_and_a_folder_is_not(self):
        shutil.copy(LATO_REGULAR, self.path("mine.ttf"))
        self.assertEqual(self.run_tool("match", "mine.ttf", "--json").json()["file"],
                         os.path.realpath(self.path("mine.ttf")))
        os.mkdir(self.path("Lato"))
        self.assertEqual(self.fonts("match", "Lato", "--json").json()["pool"], "main")

    def test_the_configuration(self):
        self.assert_error(self.run_tool("list", "--config", "/no.xml", status=CONFIGURATION),
                          "/no.xml")
        self.assert_error(self.run_tool("list", QXFONT_CONFIG="/no.xml", status=CONFIGURATION),
                          "/no.xml", "QXFONT_CONFIG")
        bad = self.write("bad.xml", "<font-config></font-config>")
        self.assert_error(self.run_tool("list", "--config", bad, status=CONFIGURATION), "bad.xml")
        good = self.write("good.xml", '<font-config windows-registry="disable">'
                                      f'<font-folder path="{LATO}"/></font-config>')
        rows = self.run_tool("list", "--json", "--config", good).json()
        self.assertEqual(len(rows), len(glob.glob(LATO + "/*.ttf")))
        self.assertEqual(self.run_tool("list", "--json", QXFONT_CONFIG=good).json(), rows)

    def test_what_opening_collected_is_told_in_one_line(self):
        config = self.write("c.xml", '<font-config windows-registry="disable">'
                                     f'<font-folder path="{LATO}"/><font-folder path="{LATO}"/>'
                                     '</font-config>')
        result = self.run_tool("list", "--json", "--config", config)
        self.assertEqual(result.err, "1 warning, see qxfont doctor\n")
        result.json()

    def test_a_path_needs_none_of_the_systems_fonts(self):
        os.mkdir(self.path("fonts"))
        self.write("fonts/cut.ttf", b"\0\1\0\0")
        shutil.copy(LATO_REGULAR, self.path("fonts/whole.ttf"))
        system = {"FONTCONFIG_FILE": self.write(
            "fonts.conf", f"<fontconfig><dir>{self.path('fonts')}</dir></fontconfig>")}
        told = "1 warning, see qxfont doctor\n"
        self.assertEqual(self.run_tool("info", "Lato", **system).err, told)
        self.assertEqual(self.run_tool("info", "fonts/whole.ttf", **system).err, "")
        self.assertEqual(self.run_tool("info", "fonts/whole.ttf", "--add", "fonts", **system).err,
                         told)

    def test_arguments_come_before_fonts_fonts_before_rights_rights_before_the_target(self):
        locked = set_fs_type(2, LATO_REGULAR, self.path("locked.ttf"))
        nowhere = "/no/such/folder/out.ttf"
        text = ["--text", "a", "-o", nowhere]
        self.run_tool("embed", "/no.ttf", "--form", "nope", *text, status=WRONG_CALL)
        self.run_tool("embed", "/no.ttf", "--form", "sfnt", "--gids", "x", *text, status=WRONG_CALL)
        self.run_tool("embed", "/no.ttf", "--form", "sfnt", *text, status=BAD_FONT)
        self.fonts("embed", "Nope", "--form", "sfnt", *text, status=NO_MATCH)
        self.run_tool("embed", locked, "--form", "sfnt", *text, status=NOT_ALLOWED)
        self.run_tool("embed", locked, "--form", "sfnt", "--allow-restricted", *text,
                      status=NOT_WRITTEN)
        self.assert_no_output("locked.ttf")

    def test_no_output_stays_after_a_failure(self):
        self.write("bad.txt", b"caf\xe9")
        self.write("good.txt", "a")
        for call, status in (
                (["embed", "Lato", "--form", "sfnt", "-o", "out"], WRONG_CALL),
                (["embed", "Lato", "--form", "sfnt", "--text-file", "bad.txt", "-o", "out"],
                 WRONG_CALL),
                (["embed", "Lato", "--form", "sfnt", "--text", "猫", "-o", "out"], NO_MATCH),
                (["embed", "Lato", "--form", "sfnt", "--text", "a", "-o", "out", "--map", "/no/m"],
                 NOT_WRITTEN),
                (["typeset", "bad.txt", "--font", "Lato", "-o", "out.pdf"], WRONG_CALL),
                (["typeset", "no.txt", "--font", "Lato", "-o", "out.pdf"], WRONG_CALL),
                (["typeset", "good.txt", "--font", "Lato", "-o", "out.doc"], WRONG_CALL),
                (["typeset", "good.txt", "--font", "Nope", "-o", "out.pdf"], NO_MATCH),
                (["typeset", "good.txt", "--font", "Lato", "-o", "no/out.pdf"], NOT_WRITTEN)):
            with self.subTest(call=call):
                self.fonts(*call, status=status)
                self.assert_no_output("bad.txt", "good.txt")

    def test_no_output_stays_when_nobody_takes_the_summary(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([QXFONT, "embed", LATO_REGULAR, "--form", "sfnt", "--text", "a",
                                   "-o", "out", "--json", *SOURCES],
                                  env=environment(), cwd=self.folder,
                                  stdout=full, stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, NOT_WRITTEN)
        self.assertIn(b"cannot write standard output", done.stderr)
        self.assert_no_output()

    def test_a_reader_that_goes_away_is_no_error_to_speak_of(self):
        reading, writing = os.pipe()
        os.close(reading)
        done = subprocess.run([QXFONT, "list", *SOURCES], env=environment(), stdout=writing,
                              stderr=subprocess.PIPE, check=False)
        os.close(writing)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, -signal.SIGPIPE)

    def test_an_interrupt_leaves_nothing_behind(self):
        """Nobody reads the summary, which is longer than a pipe holds: the tool waits for ever,
        its output beside its place."""
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number=number):
                tool = subprocess.Popen([QXFONT, "embed", LATO_REGULAR, "--form", "sfnt", "--gids",
                                         "0-3000", "-o", "out.ttf", "--json", *SOURCES],
                                        env=environment(), cwd=self.folder, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE)
                deadline = time.monotonic() + 60
                while not os.listdir(self.folder) and time.monotonic() < deadline:
                    time.sleep(0.01)
                self.assertRegex(" ".join(os.listdir(self.folder)), r"^out\.ttf\.part\d+$")
                tool.send_signal(number)
                tool.wait(timeout=60)
                self.assertEqual(tool.returncode, INTERRUPTED)
                tool.communicate()
                self.assert_no_output()

    def test_an_interrupt_while_the_text_is_awaited(self):
        os.mkfifo(self.path("pipe.txt"))
        tool = subprocess.Popen([QXFONT, "typeset", "pipe.txt", "--font", "Lato", "-o", "out.pdf",
                                 *SOURCES], env=environment(), cwd=self.folder,
                                stderr=subprocess.PIPE)
        with open(self.path("pipe.txt"), "wb"):  # waits until the tool reads
            tool.send_signal(signal.SIGTERM)
            tool.communicate(timeout=60)
        self.assertEqual(tool.returncode, INTERRUPTED)
        self.assert_no_output("pipe.txt")

    def test_an_interrupt_while_opening_removes_the_temporary_folder(self):
        """The folder is there from before the service opens until the end of the command."""
        temporary = self.path("tmp")
        os.mkdir(temporary)
        text = self.write("long.txt", "word " * 400000)
        tool = subprocess.Popen([QXFONT, "typeset", text, "--font", "Lato", "-o", "out.pdf",
                                 *SOURCES],
                                env=environment(TMPDIR=temporary), cwd=self.folder,
                                stderr=subprocess.PIPE)
        deadline = time.monotonic() + 60
        while not os.listdir(temporary) and time.monotonic() < deadline:
            time.sleep(0.002)
        self.assertNotEqual(os.listdir(temporary), [])
        tool.send_signal(signal.SIGTERM)
        _, said = tool.communicate(timeout=60)
        self.assertEqual(tool.returncode, INTERRUPTED, said)
        self.assertEqual(os.listdir(temporary), [])
        self.assert_no_output("long.txt", "tmp")

    def test_the_temporary_folder_goes_at_the_end(self):
        temporary = self.path("tmp")
        os.mkdir(temporary)
        self.run_tool("list", *SOURCES, TMPDIR=temporary)
        self.run_tool("match", "Nope", *SOURCES, TMPDIR=temporary, status=NO_MATCH)
        self.assertEqual(os.listdir(temporary), [])

    def test_there_is_no_colour_and_no_bar_in_a_pipe(self):
        result = self.fonts("list")
        self.assertNotIn("\033", result.out + result.err)

    def test_control_characters_of_a_file_name_do_not_reach_the_terminal(self):
        name = "evil\033[31m\n.ttf"
        shutil.copy(LATO_REGULAR, self.path(name))
        shown = self.run_tool("match", "./" + name).out
        self.assertIn("evil\N{REPLACEMENT CHARACTER}[31m\N{REPLACEMENT CHARACTER}.ttf", shown)
        found = self.run_tool("match", "./" + name, "--json").json()
        self.assertEqual(os.path.basename(found["file"]), name)
        self.write("bad\033.ttf", "no font")
        self.assertNotIn("\033", self.run_tool("match", "./bad\033.ttf", status=BAD_FONT).err)


class SourcesTest(QxfontTest):
    def test_only_takes_folders_with_their_subfolders_and_nothing_else(self):
        os.makedirs(self.path("a/b & <c>"))
        shutil.copy(LATO_REGULAR, self.path("a/b & <c>/x.ttf"))
        rows = self.run_tool("list", "--json", "--only", "a").json()
        self.assertEqual([row["family"] for row in rows], ["Lato"])

    def test_add_takes_one_more_folder(self):
        rows = self.run_tool("list", "--json", "--only", IPA, "--add", LATO).json()
        self.assertEqual(len(rows), 2 + len(glob.glob(LATO + "/*.ttf")))

    def test_a_documents_font_stands_first_in_the_list(self):
        result = self.run_tool("list", "--json", "--only", IPA, "--document",
                               LATO_REGULAR + "=Mine:700:italic")
        rows = result.json()
        self.assertEqual([row["resource_type"] == 2 for row in rows], [True, False, False])

    def test_a_documents_font_that_has_no_name_of_its_own_is_told(self):
        """The service looks up web fonts by the name that the document declares, and no others."""
        call = ["match", "Mine", "--only", IPA, "--document", LATO_REGULAR + "=Mine"]
        result = self.run_tool(*call, status=NO_MATCH)
        self.assertIn("Lato-Regular.ttf is no web font", result.err)

    def test_a_documents_font_that_is_none(self):
        self.run_tool("list", "--document", "/no/such.ttf", "--only", IPA, status=BAD_FONT)


def best_name(font, *ids):
    return next(filter(None, (font["name"].getDebugName(i) for i in ids)))


class ListTest(QxfontTest):
    KEYS = ["family", "full_name", "weight", "italic", "resource_type", "file_type", "embed_status",
            "flags"]

    def test_every_face_is_there_as_fonttools_sees_it(self):
        rows = self.fonts("list", "--json").json()
        for row in rows:
            self.assertEqual(list(row), self.KEYS)
        wanted = []
        for path in (p for folder in (LATO, DEJAVU, IPA) for p in glob.glob(folder + "/*.ttf")):
            with TTFont(path) as font:
                wanted.append((best_name(font, 16, 1), best_name(font, 4),
                               font["OS/2"].usWeightClass, bool(font["OS/2"].fsSelection & 1)))
        got = [(r["family"], r["full_name"], r["weight"], r["italic"]) for r in rows]
        self.assertEqual(sorted(got), sorted(wanted))

    def test_one_family(self):
        rows = self.fonts("list", "Lato", "--json").json()
        self.assertEqual({row["family"] for row in rows}, {"Lato"})

    def test_rows_one_a_line(self):
        rows = self.fonts("list", "--json").json()
        lines = self.fonts("list", "--ndjson").out.strip().split("\n")
        self.assertEqual([json.loads(line) for line in lines], rows)

    def test_people_see_a_table(self):
        faces = len(self.fonts("list", "--json").json())
        lines = self.fonts("list").out.strip().split("\n")
        self.assertEqual(len(lines), 1 + faces)
        column = lines[0].index("weight")
        self.assertEqual({line[column - 2:column] for line in lines if line.isascii()}, {"  "})

    def test_vertical_faces(self):
        """A face counts as one that can stand vertically when it has substitutions at all."""
        self.assertEqual(len(self.fonts("list", "@IPAGothic", "--json").json()), 1)
        os.mkdir(self.path("bare"))
        with TTFont(LATO_REGULAR) as font:
            del font["GSUB"]
            font.save(self.path("bare/a.ttf"))
        self.run_tool("list", "Lato", "--only", "bare")
        self.run_tool("list", "@Lato", "--only", "bare", status=NO_MATCH)


class MatchTest(QxfontTest):
    KEYS = ["family", "postscript_name", "weight", "italic", "stretch", "file", "entry",
            "file_type", "pool", "step"]

    def match(self, *arguments):
        return self.fonts("match", *arguments, "--json").json()

    def test_keys_stand_in_order(self):
        self.assertEqual(list(self.match("Lato")), self.KEYS)
        explained = list(self.match("Lato", "--explain"))
        self.assertEqual(explained, self.KEYS + ["table", "key", "filled", "losers"])

    def test_steps(self):
        for call, name, step in (
                (["Lato"], "Lato-Regular", "exact"),
                (["Lato", "--weight", "700", "--italic"], "Lato-BoldItalic", "exact"),
                (["DejaVu Sans", "--weight", "600"], "DejaVuSans-Bold", "filled"),
                (["lato-light.TTF"], "Lato-Light", None),
                (["DejaVuSans-Bold"], "DejaVuSans-Bold", None)):
            with self.subTest(call=call):
                found = self.match(*call)
                self.assertEqual((found["postscript_name"], found["pool"]), (name, "main"))
                if step:
                    self.assertEqual(found["step"], step)

    def test_filled_slots_name_styles_that_no_face_has(self):
        filled = self.match("DejaVu Sans", "--weight", "600", "--explain")["filled"]
        self.assertIn({"weight": 600, "italic": False, "postscript_name": "DejaVuSans-Bold"},
                      filled)

    def test_a_path_needs_no_lookup(self):
        found = self.run_tool("match", LATO_REGULAR, "--json", "--only", IPA).json()
        self.assertEqual(list(found), self.KEYS[:-2])
        self.assertEqual((found["postscript_name"], found["file"]), ("Lato-Regular", LATO_REGULAR))

    def test_losers_are_faces_of_the_same_name_and_style(self):
        for name in ("a", "b"):
            os.mkdir(self.path(name))
            shutil.copy(LATO_REGULAR, self.path(f"{name}/{name}.ttf"))
        found = self.run_tool("match", "Lato", "--explain", "--json", "--only", "a", "--only",
                              "b").json()
        self.assertEqual(os.path.basename(found["file"]), "a.ttf")
        self.assertEqual([os.path.basename(face["file"]) for face in found["losers"]], ["b.ttf"])


class InfoTest(QxfontTest):
    NAME_IDS = {"family": 1, "subfamily": 2, "full": 4, "postscript": 6, "preferred_family": 16,
                "preferred_subfamily": 17, "cid_findfont": 20, "copyright": 0, "manufacturer": 8,
                "license": 13}

    def test_keys_stand_in_order(self):
        info = self.run_tool("info", LATO_REGULAR, "--json").json()
        self.assertEqual(list(info), ["names", "style", "embedding", "metrics"])
        self.assertEqual(list(info["style"]), ["weight", "italic", "stretch", "symbolic",
                                               "fixed_width", "serif_like", "script_like"])
        self.assertEqual(list(info["embedding"]), ["can_embed", "status", "licence", "chars"])
        self.assertEqual(list(info["metrics"]), [
            "units_per_em", "ascent", "descent", "cap_height", "x_height", "typo_ascender",
            "typo_descender", "typo_line_gap", "external_leading", "average_width", "maximum_width",
            "italic_angle", "bounds"])

    def test_names_in_all_languages_are_those_that_fonttools_reads(self):
        for path in (LATO_REGULAR, DEJAVU_SANS, IPA_GOTHIC):
            with self.subTest(path=path):
                names = self.run_tool("info", path, "--json").json()["names"]
                with TTFont(path) as font:
                    records = [r for r in font["name"].names if r.platformID == 3]
                self.assertLessEqual({str(r.langID) for r in records} | {"0"}, set(names))
                for record in records:
                    key = next((k for k, i in self.NAME_IDS.items() if i == record.nameID), None)
                    text = record.toUnicode()
                    # A name that holds control characters, line ends too, is none.
                    if key and text and text.isprintable():
                        self.assertEqual(names[str(record.langID)][key], text)

    def test_style_and_metrics_are_those_that_fonttools_reads(self):
        for path in (LATO_REGULAR, LATO + "/Lato-BoldItalic.ttf", DEJAVU_SANS,
                     DEJAVU + "/DejaVuSansMono.ttf", IPA_GOTHIC):
            with self.subTest(path=path):
                info = self.run_tool("info", path, "--json").json()
                font = source_font(path)
                os2, head = font["OS/2"], font["head"]
                style, metrics = info["style"], info["metrics"]
                self.assertEqual((style["weight"], style["stretch"]),
                                 (os2.usWeightClass, os2.usWidthClass))
                self.assertEqual(style["italic"], bool(os2.fsSelection & 1))
                # A font that PANOSE calls monospaced is one, whatever `post` says.
                self.assertEqual(style["fixed_width"],
                                 bool(font["post"].isFixedPitch) or os2.panose.bProportion == 9)
                self.assertEqual(info["embedding"]["licence"], os2.fsType)
                self.assertEqual(metrics["units_per_em"], head.unitsPerEm)
                self.assertEqual(metrics["bounds"], [head.xMin, head.yMin, head.xMax, head.yMax])
                self.assertEqual((metrics["ascent"], metrics["descent"]),
                                 (os2.usWinAscent, os2.usWinDescent))
                self.assertEqual(metrics["typo_line_gap"], os2.sTypoLineGap)
                self.assertAlmostEqual(metrics["italic_angle"], font["post"].italicAngle, places=3)

    def test_people_see_it_too(self):
        shown = self.run_tool("info", LATO_REGULAR).out
        for part in ("Lato-Regular", "units per em", "code pages"):
            self.assertIn(part, shown)


class GlyphsTest(QxfontTest):
    def test_ids_and_widths_are_those_that_fonttools_reads(self):
        text = "Quick ĂβЖ 猫\N{GRINNING FACE}"
        for path in (LATO_REGULAR, DEJAVU_SANS, IPA_GOTHIC):
            with self.subTest(path=path):
                answer = self.run_tool("glyphs", path, text, "--json").json()
                self.assertEqual(list(answer), ["glyphs", "text_width", "first_missing"])
                font = source_font(path)
                cmap, total, missing = font.getBestCmap(), 0, -1
                for row, character in zip(answer["glyphs"], text, strict=True):
                    self.assertEqual(list(row), ["code", "glyph", "width"])
                    self.assertEqual(row["code"], ord(character))
                    if ord(character) in cmap:
                        name = cmap[ord(character)]
                        self.assertEqual(row["glyph"], font.getGlyphID(name))
                        self.assertEqual(row["width"], font["hmtx"][name][0])
                        total += row["width"]
                    else:
                        self.assertEqual(row["glyph"], NO_GLYPH)
                        before = text[:text.index(character)].encode("utf-16-le")
                        missing = len(before) // 2 if missing < 0 else missing
                self.assertEqual(answer["first_missing"], missing)
                self.assertAlmostEqual(answer["text_width"], total, delta=total * 1e-5)

    def test_an_em_of_a_size(self):
        answer = self.run_tool("glyphs", LATO_REGULAR, "H", "--size", "-1000", "--json").json()
        font = source_font(LATO_REGULAR)
        width = font["hmtx"][font.getBestCmap()[ord("H")]][0] * 1000 / font["head"].unitsPerEm
        self.assertAlmostEqual(answer["text_width"], width, places=2)

    def test_vertical_forms(self):
        across = self.run_tool("glyphs", IPA_GOTHIC, "ー。", "--json").json()["glyphs"]
        call = ["glyphs", IPA_GOTHIC, "ー。", "--vertical", "--json"]
        down = self.run_tool(*call).json()["glyphs"]
        self.assertEqual([a["glyph"] == d["glyph"] for a, d in zip(across, down)], [False, False])


class EmbedTest(QxfontTest):
    TEXT = "Affinité ½ Ăĺ"

    def embed(self, font, form, out, *more, **status):
        return self.run_tool("embed", font, "--form", form, "-o", out, "--json", *more, **status)

    def test_kept_glyphs_keep_their_outlines_and_the_others_are_empty(self):
        for path, text in ((LATO_REGULAR, self.TEXT), (DEJAVU_SANS, self.TEXT + "Жβ"),
                           (IPA_GOTHIC, "吾輩は猫である。")):
            with self.subTest(path=path):
                summary = self.embed(path, "sfnt", "out.ttf", "--text", text).json()
                source, subset = source_font(path), TTFont(io.BytesIO(self.read("out.ttf")))
                self.assertEqual(subset["maxp"].numGlyphs, source["maxp"].numGlyphs)
                asked = {source.getGlyphID(source.getBestCmap()[ord(c)]) for c in text}
                self.assertEqual({row["id"] for row in summary["map"]}, asked)
                kept = self.closure(source, asked | {0})
                order = source.getGlyphOrder()
                # The subset has no names of its own: glyphs meet by their ids.
                subset.setGlyphOrder(order)
                for gid, name in enumerate(order):
                    if gid in kept:
                        self.assertEqual(outline(subset, name), outline(source, name), name)
                    else:
                        self.assertEqual(subset["glyf"][name].numberOfContours, 0, name)

    @staticmethod
    def closure(font, gids):
        kept, new = set(), set(gids)
        while new:
            kept |= new
            glyphs = [font["glyf"][font.getGlyphName(gid)] for gid in new]
            parts = [part.glyphName for g in glyphs if g.isComposite() for part in g.components]
            new = {font.getGlyphID(part) for part in parts} - kept
        return kept

    def test_two_runs_give_the_same_bytes(self):
        for form, more in (("sfnt", []), ("sfnt-cmap", []), ("svg2", []), ("sfnt-all", []),
                           ("sfnt-all", ["--as-specified"])):
            for out in ("a", "b"):
                self.embed(LATO_REGULAR, form, out, "--text", self.TEXT, *more)
            self.assertEqual(self.read("a"), self.read("b"), form)

    def test_summary_and_map(self):
        result = self.embed(LATO_REGULAR, "sfnt", "out", "--unicodes", "U+0041-0042",
                            "--gids", "12", "--map", "map.json").json()
        self.assertEqual(list(result), ["form", "bytes", "glyphs", "name", "map"])
        self.assertEqual((result["form"], result["name"]), ("sfnt", "Lato-Regular"))
        self.assertEqual(result["bytes"], os.path.getsize(self.path("out")))
        font = source_font(LATO_REGULAR)
        for row in result["map"]:
            self.assertEqual(list(row), ["glyph", "id", "unicode", "width"])
            name = font.getGlyphName(row["glyph"])
            self.assertEqual(font.getBestCmap()[row["unicode"]], name)
            self.assertEqual(row["width"], font["hmtx"][name][0])
        self.assertEqual(len(result["map"]), result["glyphs"])
        with open(self.path("map.json"), encoding="utf-8") as file:
            self.assertEqual(json.load(file), result["map"])

    def test_tables_of_the_forms(self):
        wanted = {
            "sfnt": {"OS/2", "cvt ", "fpgm", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "post",
                     "prep"},
            "svg2": set(source_font(LATO_REGULAR).keys()) - {"GlyphOrder"},
            "sfnt-all": set(source_font(LATO_REGULAR).keys()) - {"GlyphOrder", "DSIG"},
        }
        wanted["sfnt-cmap"] = wanted["sfnt"] | {"cmap"}
        for form, tables in wanted.items():
            self.embed(LATO_REGULAR, form, "out", "--text", "a")
            present = set(source_font(LATO_REGULAR).keys())
            written = set(TTFont(io.BytesIO(self.read("out"))).keys()) - {"GlyphOrder"}
            self.assertEqual(written, tables & present)

    def test_the_whole_stream(self):
        self.embed(LATO_REGULAR, "stream", "out")
        with open(LATO_REGULAR, "rb") as source:
            self.assertEqual(self.read("out"), source.read())

    def test_the_map_of_a_whole_font_has_all_its_glyphs(self):
        rows = self.embed(LATO_REGULAR, "stream", "out").json()["map"]
        font = source_font(LATO_REGULAR)
        self.assertEqual([row["glyph"] for row in rows], list(range(font["maxp"].numGlyphs)))
        lowest = {}
        for code in sorted(font.getBestCmap(), reverse=True):
            lowest[font.getGlyphID(font.getBestCmap()[code])] = code
        for row in rows:
            self.assertEqual(row.get("unicode"), lowest.get(row["glyph"]))
            self.assertEqual(row["id"], row["glyph"])
        asked = self.embed(LATO_REGULAR, "stream", "out", "--gids", "3,5-6").json()["map"]
        self.assertEqual([row["glyph"] for row in asked], [3, 5, 6])

    def test_glyph_files_for_postscript(self):
        self.embed(LATO_REGULAR, "ps-glyphs", "out", "--text", "e")
        names = sorted(os.listdir(self.path("out")))
        font = source_font(LATO_REGULAR)
        gid = font.getGlyphID("e")
        self.assertEqual(names, ["font.sfnt", "glyph00000.bin", f"glyph{gid:05}.bin"])
        begin, end = font["loca"][gid], font["loca"][gid + 1]
        data = font.reader["glyf"][begin:end]
        self.assertEqual(self.read(f"out/glyph{gid:05}.bin"), data)

    def test_missing_characters_are_told(self):
        result = self.embed(LATO_REGULAR, "sfnt", "out", "--text", "a猫")
        self.assertIn("U+732B", result.err)
        self.assertEqual(result.json()["glyphs"], 1)

    def test_a_form_that_the_font_does_not_have_names_those_it_has(self):
        result = self.embed(LATO_REGULAR, "cff", "out", "--text", "a", status=WRONG_CALL)
        self.assertIn("hint: it has: sfnt, sfnt-cmap, ", result.err)
        result = self.embed(LATO_REGULAR, "nope", "out", "--text", "a", status=WRONG_CALL)
        self.assertIn("hint: forms: sfnt, sfnt-cmap, ", result.err)

    def test_a_glyph_that_the_font_does_not_have(self):
        self.embed(LATO_REGULAR, "sfnt", "out", "--gids", "65000", status=WRONG_CALL)
        self.assert_no_output()

    def test_rights(self):
        for bits, form, status in (
                (0x0002, "sfnt", NOT_ALLOWED), (0x0004, "sfnt", DONE), (0x0008, "sfnt", DONE),
                (0x0100, "sfnt", NOT_ALLOWED), (0x0100, "stream", DONE),
                (0x0200, "stream", NOT_ALLOWED)):
            with self.subTest(bits=bits, form=form):
                locked = set_fs_type(bits, LATO_REGULAR, self.path("locked.ttf"))
                self.embed(locked, form, "out", "--text", "a", status=status)
                self.assertEqual(os.path.exists(self.path("out")), status == DONE)
                self.embed(locked, form, "out", "--text", "a", "--allow-restricted")
                os.remove(self.path("out"))

    def test_a_device_is_not_replaced(self):
        self.embed(LATO_REGULAR, "sfnt", "/dev/null", "--text", "a", status=NOT_WRITTEN)


def plain(text):
    return " ".join(text.split())


class TypesetTest(QxfontTest):
    def typeset(self, text, *more, **status):
        file = self.write("text.txt", text)
        return self.fonts("typeset", file, "-o", "out.pdf", "--json", *more, **status)

    def pdf_text(self):
        done = subprocess.run(["pdftotext", "-raw", self.path("out.pdf"), "-"], capture_output=True,
                              check=True)
        return plain(done.stdout.decode("utf-8"))

    def pdf_fonts(self):
        """Rows of pdffonts: name, type, embedded, subset, with ToUnicode."""
        done = subprocess.run(["pdffonts", self.path("out.pdf")], capture_output=True, check=True)
        rows = done.stdout.decode("utf-8").split("\n")[2:]
        found = [re.match(r"(\S+) +(.*?) +\S+ +(yes|no) +(yes|no) +(yes|no) ", row) for row in rows]
        return [match.groups() for match in found if match]

    def assert_sound(self, fonts):
        checked = subprocess.run(["qpdf", "--check", self.path("out.pdf")], capture_output=True,
                                 check=False)
        self.assertEqual(checked.returncode, 0, checked.stdout + checked.stderr)
        rows = self.pdf_fonts()
        self.assertEqual(len(rows), fonts)
        for name, kind, *flags in rows:
            self.assertRegex(name, r"^[A-Z]{6}\+")
            self.assertEqual((kind, flags), ("CID TrueType", ["yes"] * 3))

    def test_the_demo(self):
        with open(DEMO, encoding="utf-8") as file:
            source = file.read()
        summary = self.typeset(source, "--font", "DejaVu Sans", "--font", "IPAGothic").json()
        self.assertEqual(list(summary), ["pages", "fonts", "missing"])
        self.assertEqual((summary["pages"], summary["missing"]), (1, []))
        self.assertEqual(
            [font["postscript_name"] for font in summary["fonts"]],
            ["DejaVuSans-Bold", "DejaVuSans", "Lato-Italic", "Lato-Light", "IPAGothic"])
        for font in summary["fonts"]:
            self.assertEqual(list(font), ["family", "postscript_name", "file", "form", "glyphs",
                                          "bytes"])
            self.assertEqual(font["form"], "sfnt")
        self.assert_sound(fonts=5)
        lines = [line for line in source.split("\n") if not line.startswith("#font")]
        lines = [line.removeprefix("\\") for line in lines]
        # Where a line ends between wide characters there is no space to be given back.
        self.assertEqual(self.pdf_text().replace(" ", ""), plain("\n".join(lines)).replace(" ", ""))

    def test_two_runs_give_the_same_bytes_and_bear_no_date(self):
        written = []
        for _ in range(2):
            self.typeset("Hello 猫", "--font", "Lato", "--font", "IPAGothic")
            written.append(self.read("out.pdf"))
            time.sleep(1.1)
        self.assertEqual(written[0], written[1])
        info = subprocess.run(["pdfinfo", self.path("out.pdf")], capture_output=True, check=True)
        self.assertNotIn(b"CreationDate", info.stdout)

    def test_a_date_that_is_asked_for(self):
        self.typeset("Hello", "--font", "Lato", SOURCE_DATE_EPOCH="1700000000")
        info = subprocess.run(["pdfinfo", "-isodates", self.path("out.pdf")], capture_output=True,
                              check=True, env={**os.environ, "TZ": "UTC"})
        self.assertIn(b"2023-11-14T22:13:20Z", info.stdout)
        self.typeset("Hello", "--font", "Lato", SOURCE_DATE_EPOCH="today", status=WRONG_CALL)

    def test_characters_come_from_the_first_font_that_has_them(self):
        summary = self.typeset("a猫b名", "--font", "Lato", "--font", "IPAGothic").json()
        self.assertEqual([f["postscript_name"] for f in summary["fonts"]],
                         ["Lato-Regular", "IPAGothic"])
        self.assertEqual([f["glyphs"] for f in summary["fonts"]], [2, 2])
        self.assertEqual(self.pdf_text(), "a猫b名")

    def test_characters_beyond_the_first_plane_are_given_back(self):
        text = "a \N{MATHEMATICAL DOUBLE-STRUCK SMALL A}\N{MATHEMATICAL DOUBLE-STRUCK SMALL B}"
        self.assertEqual(self.typeset(text, "--font", "DejaVu Sans").json()["missing"], [])
        self.assertEqual(self.pdf_text(), text)

    def test_missing_characters_are_reported_and_their_text_is_kept(self):
        result = self.typeset("a猫\N{GRINNING FACE}猫", "--font", "Lato")
        self.assertEqual(result.json()["missing"], ["U+732B", "U+1F600"])
        self.assertIn("U+732B, U+1F600", result.err)
        self.assertEqual(self.pdf_text(), "a猫\N{GRINNING FACE}猫")
        self.assert_sound(fonts=1)

    def test_one_face_asked_for_in_two_ways_is_embedded_once(self):
        summary = self.typeset("#font DejaVu Sans:600\na\n#font DejaVu Sans:700\nb\n#font "
                               f"{DEJAVU}/DejaVuSans-Bold.ttf\nc", "--font", "DejaVu Sans").json()
        self.assertEqual([(f["postscript_name"], f["glyphs"]) for f in summary["fonts"]],
                         [("DejaVuSans-Bold", 3)])

    def test_long_texts_take_pages(self):
        words = " ".join(f"word{i}" for i in range(3000))
        summary = self.typeset(words, "--font", "Lato", "--page", "A5", "--size", "11").json()
        self.assertGreater(summary["pages"], 5)
        self.assertEqual(self.pdf_text(), words)
        info = subprocess.run(["pdfinfo", self.path("out.pdf")], capture_output=True, check=True)
        self.assertIn(b"Page size:       419.528 x 595.276 pts", info.stdout)

    def test_an_empty_text_is_one_empty_page(self):
        summary = self.typeset("", "--font", "Lato").json()
        self.assertEqual(summary, {"pages": 1, "fonts": [], "missing": []})
        self.assert_sound(fonts=0)

    def test_pairs_are_kerned_by_the_kern_table(self):
        """DejaVu Sans has one; the word ends where the pairs of the table put it."""
        font = source_font(DEJAVU_SANS)
        text = "AVAVAVAV"
        cmap, hmtx, kern = font.getBestCmap(), font["hmtx"], font["kern"].kernTables[0]
        names = [cmap[ord(c)] for c in text]
        width = sum(hmtx[name][0] for name in names)
        kerned = width + sum(kern.kernTable.get(pair, 0) for pair in zip(names, names[1:]))
        self.assertLess(kerned, width)
        self.typeset(text, "--font", "DejaVu Sans", "--size", "40")
        done = subprocess.run(["pdftotext", "-bbox", self.path("out.pdf"), "-"],
                              capture_output=True, check=True)
        word = re.search(r'<word xMin="([\d.]+)".*?xMax="([\d.]+)"', done.stdout.decode())
        first, last = word.groups()
        self.assertAlmostEqual(float(last) - float(first), kerned * 40 / 2048, delta=0.5)

    def test_a_font_line_that_fails_tells_its_line(self):
        result = self.typeset("a\n#font Nope\nb", "--font", "Lato", status=NO_MATCH)
        self.assertIn("text.txt:2: no font is called 'Nope'", result.err)
        self.assert_no_output("text.txt")

    def test_rights(self):
        locked = set_fs_type(2, LATO_REGULAR, self.path("locked.ttf"))
        self.typeset("a", "--font", locked, status=NOT_ALLOWED)
        self.assert_no_output("locked.ttf", "text.txt")
        self.typeset("a", "--font", locked, "--allow-restricted")
        os.remove(self.path("out.pdf"))
        # A font that lends nothing is not embedded.
        self.typeset("a", "--font", "Lato", "--font", locked)


if __name__ == "__main__":
    unittest.main()
