#!/usr/bin/env python3
"""Lays `qxfont shape` beside HarfBuzz's hb-shape, over installed fonts and over small ones made here.

The variable QXFONT names the program; ctest sets it. Where the two must differ, the difference is
the test.
"""

import json
import os
import random
import re
import shutil
import subprocess
import tempfile
import unicodedata
import unittest

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

QXFONT = os.environ["QXFONT"]
DEJAVU = "/usr/share/fonts/truetype/dejavu"
LATO = "/usr/share/fonts/truetype/lato"
GARAMOND = "/usr/share/fonts/opentype/ebgaramond"
LIBERTINE = "/usr/share/fonts/opentype/linux-libertine"
AMIRI = "/usr/share/fonts/opentype/fonts-hosny-amiri"
IPA = "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf"

# At least 500 words a font, a line of 50 at a time.
LINES, WORDS = 10, 50

LATIN = "etaoinshrdlcumwfgypbvkjxqzETAOINSHRDLCUMWFGYPBVKJXQZ"
PAIRS = ["fi", "fl", "ff", "ffi", "ffl", "fj", "Th", "AV", "To", "Wa", "Qu", "ct", "st", "tt"]
ACCENTED = "éèêëàâäîïôöùûüçñßøåæœÉÀÖÜÇŠšŽžČčĘęŁłŐőŰűĞğİışŞţŢ"
GREEK = "αβγδεζηθικλμνξοπρστυφχψωάέήίόύώΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ"
CYRILLIC = "абвгдежзийклмнопрстуфхцчшщъыьэюяАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
ARABIC = "ابتثجحخدذرزسشصضطظعغفقكلمنهويةىءأإآؤئ"
HEBREW = "אבגדהוזחטיכלמנסעפצקרשתםןץףך"
KANA = "あいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほまみむめもやゆよらりるれろわをん"
VERTICAL = "「」『』（）【】、。ー～…ぁぃぅぇぉっゃゅょァィゥェォッャュョ"
MARKS = "\u0300\u0301\u0302\u0303\u0304\u0306\u0308\u030A\u0323\u0331"
# Letters with a mark for which there is no character, so that nobody composes them.
MARKED = [letter + mark for letter in LATIN for mark in MARKS
          if len(unicodedata.normalize("NFC", letter + mark)) == 2]


def words(seed, *kinds):
    """Lines of drawn words of the given letters, the same in each run."""
    draw = random.Random(seed)
    for _ in range(LINES):
        line = []
        for _ in range(WORDS):
            letters = draw.choice(kinds)
            line.append("".join(draw.choice(letters) for _ in range(draw.randint(1, 9))))
        yield " ".join(line)


def known(font, letters):
    """Those of the letters, or of groups of them, that a font has."""
    with TTFont(font, lazy=True) as opened:
        has = opened.getBestCmap()
    return [letter for letter in letters if all(ord(one) in has for one in letter)]


def ours(font, text, script, *more):
    done = subprocess.run([QXFONT, "shape", font, text, "--script", script, "--json", *more],
                          check=True, capture_output=True)
    return json.loads(done.stdout)


def theirs(font, text, script, *more):
    done = subprocess.run(["hb-shape", "--output-format=json", "--no-glyph-names",
                           f"--script={script}", *more, font, text],
                          check=True, capture_output=True)
    return json.loads(done.stdout)


def placed(glyphs):
    """(glyph, x, y) with x from the line's begin: where an advance is counted does not matter."""
    pen, result = 0, []
    for glyph in glyphs:
        result.append((glyph["g"], pen + glyph["dx"], glyph["dy"]))
        pen += glyph["ax"]
    return result


def clusters(glyphs):
    return [glyph["cl"] for glyph in glyphs]


class ShapeTest(unittest.TestCase):
    def assert_same(self, mine, other, text):
        self.assertEqual([glyph for glyph, _, _ in mine], [glyph for glyph, _, _ in other], text)
        for left, right in zip(mine, other):
            self.assertLessEqual(abs(left[1] - right[1]), 1, (left, right, text))
            self.assertLessEqual(abs(left[2] - right[2]), 1, (left, right, text))

    def compare(self, font, lines, script, rtl=False, features=(), off=()):
        mine = ["--rtl"] if rtl else []
        other = ["--direction=" + ("rtl" if rtl else "ltr")]
        if features:
            mine.append("--features=" + ",".join(features))
            off = set(off) | set(ON_BY_DEFAULT) - set(features)
            other.append("--features=" + ",".join(
                [f"+{tag}" for tag in features] + [f"-{tag}" for tag in sorted(off)]))
        count = 0
        for line in lines:
            count += len(line.split())
            self.assert_same(placed(ours(font, line, script, *mine)),
                             placed(theirs(font, line, script, *other)), line)
        self.assertGreaterEqual(count, LINES * WORDS)


ON_BY_DEFAULT = ("abvm", "blwm", "ccmp", "locl", "mark", "mkmk", "rlig", "calt", "clig", "curs",
                 "dist", "kern", "liga", "rclt")


class InstalledFonts(ShapeTest):
    """The words of a font: pairs, ligatures, alternates, chains of format 3, marks."""

    LATIN_FONTS = (
        f"{DEJAVU}/DejaVuSans.ttf", f"{DEJAVU}/DejaVuSerif.ttf", f"{DEJAVU}/DejaVuSans-Bold.ttf",
        f"{LATO}/Lato-Regular.ttf", f"{LATO}/Lato-Italic.ttf", f"{LATO}/Lato-Black.ttf",
        f"{GARAMOND}/EBGaramond12-Regular.otf", f"{GARAMOND}/EBGaramond12-Italic.otf",
        f"{LIBERTINE}/LinLibertine_R.otf", f"{LIBERTINE}/LinBiolinum_R.otf")

    def test_latin(self):
        for number, font in enumerate(self.LATIN_FONTS):
            with self.subTest(font=font):
                letters = known(font, list(LATIN) + PAIRS * 2)
                self.compare(font, words(number, letters, known(font, LATIN + ACCENTED)), "latn")

    def test_greek(self):
        for font in self.LATIN_FONTS[:3] + self.LATIN_FONTS[6:9]:
            with self.subTest(font=font):
                self.compare(font, words(31, known(font, GREEK)), "grek")

    def test_cyrillic(self):
        for font in self.LATIN_FONTS[:3] + self.LATIN_FONTS[6:9]:
            with self.subTest(font=font):
                self.compare(font, words(32, known(font, CYRILLIC)), "cyrl")

    def test_marks_on_bases(self):
        for font in (f"{DEJAVU}/DejaVuSans.ttf", f"{DEJAVU}/DejaVuSerif.ttf"):
            with self.subTest(font=font):
                self.compare(font, words(5, known(font, MARKED)), "latn")

    def test_features_by_name(self):
        font = f"{GARAMOND}/EBGaramond12-Regular.otf"
        for feature in ("smcp", "c2sc", "onum", "dlig", "hlig", "salt", "aalt", "ccmp"):
            with self.subTest(feature=feature):
                self.compare(font, words(7, known(font, list(LATIN) + PAIRS)), "latn",
                             features=(feature,))

    def test_hebrew(self):
        self.compare(f"{DEJAVU}/DejaVuSans.ttf", words(8, HEBREW), "hebr", rtl=True)

    def test_arabic_joins(self):
        for font in (f"{DEJAVU}/DejaVuSans.ttf", f"{DEJAVU}/DejaVuSans-Bold.ttf"):
            with self.subTest(font=font):
                self.compare(font, words(9, known(font, ARABIC)), "arab", rtl=True)

    def test_japanese(self):
        self.compare(IPA, words(10, KANA), "kana")

    def test_vertical_japanese(self):
        changed = 0
        for line in words(11, KANA, VERTICAL):
            line = line.replace(" ", "")
            mine = ours(IPA, line, "kana", "--vertical")
            other = theirs(IPA, line, "kana", "--direction=ttb")
            self.assertEqual([glyph["g"] for glyph in mine], [glyph["g"] for glyph in other])
            self.assertEqual([glyph["ax"] for glyph in mine], [-glyph["ay"] for glyph in other])
            flat = ours(IPA, line, "kana")
            changed += sum(a["g"] != b["g"] for a, b in zip(mine, flat))
        self.assertGreater(changed, 100)

    def test_clusters_of_ligatures(self):
        font = f"{LATO}/Lato-Regular.ttf"
        text = "office flat"
        self.assertEqual(clusters(ours(font, text, "latn")), clusters(theirs(font, text, "latn")))

    def test_a_joining_text_in_a_font_of_many_lookups(self):
        text = "السلام عليكم ورحمة الله وبركاته الخط العربي هو فن وتصميم الكتابة"
        font = f"{AMIRI}/Amiri-Regular.ttf"
        self.assert_same(placed(ours(font, text, "arab", "--rtl")),
                         placed(theirs(font, text, "arab", "--direction=rtl")), text)


def square(side):
    pen = TTGlyphPen(None)
    for x, y in ((0, 0), (0, side), (side, side)):
        (pen.lineTo if (x, y) != (0, 0) else pen.moveTo)((x, y))
    pen.closePath()
    return pen.glyph()


class MadeFontTest(ShapeTest):

    NAMES = [".notdef", "a", "b", "c", "f", "i", "f_i", "x", "y", "acute", "dot"]
    CHARACTERS = {"a": 1, "b": 2, "c": 3, "f": 4, "i": 5, "x": 7, "y": 8, "\u0301": 9, "\u0323": 10}
    WIDTH = 500

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def font(self, features, edit=None):
        builder = FontBuilder(1000, isTTF=True)
        builder.setupGlyphOrder(self.NAMES)
        builder.setupCharacterMap({ord(c): self.NAMES[g] for c, g in self.CHARACTERS.items()})
        builder.setupGlyf({name: square(100) for name in self.NAMES})
        builder.setupHorizontalMetrics({name: (self.WIDTH, 0) for name in self.NAMES})
        builder.setupHorizontalHeader(ascent=800, descent=-200)
        builder.setupNameTable({"familyName": "Made", "styleName": "Regular"})
        builder.setupOS2(sTypoAscender=800)
        builder.setupPost()
        classes = "table GDEF { GlyphClassDef [a b c f i x y], [f_i], [acute dot], ; } GDEF;"
        addOpenTypeFeaturesFromString(
            builder.font, f"languagesystem latn dflt; languagesystem arab dflt; {features} {classes}")
        if edit:
            edit(builder.font)
        path = os.path.join(self.folder, "made.ttf")
        builder.save(path)
        return path


class MadeFonts(MadeFontTest):
    """Fonts with one rule each, where this service and others must differ."""

    def both(self, font, text, script="latn", *more):
        return ours(font, text, script, *more), theirs(font, text, script, "--direction=ltr")

    def ids(self, glyphs):
        return [self.NAMES[glyph["g"]] for glyph in glyphs]

    def test_what_agrees(self):
        font = self.font("feature liga { sub f i by f_i; } liga; feature kern { pos a b -40; } kern;")
        mine, other = self.both(font, "abfic")
        self.assertEqual(placed(mine), placed(other))
        self.assertEqual(self.ids(mine), ["a", "b", "f_i", "c"])
        self.assertEqual(mine[0]["ax"], self.WIDTH - 40)

    def test_context_rules_of_glyphs_never_apply(self):
        def to_format_1(font):
            from fontTools.ttLib.tables import otTables
            gsub = font["GSUB"].table
            lookup = next(each for each in gsub.LookupList.Lookup if each.LookupType in (5, 6))
            inner = lookup.SubTable[0]
            records = inner.SubstLookupRecord
            rule = otTables.SubRule()
            rule.GlyphCount, rule.Input = 2, ["b"]
            rule.SubstCount, rule.SubstLookupRecord = len(records), records
            rules = otTables.SubRuleSet()
            rules.SubRule, rules.SubRuleCount = [rule], 1
            table = otTables.ContextSubst()
            table.Format, table.Coverage = 1, otTables.Coverage()
            table.Coverage.glyphs = ["a"]
            table.SubRuleSet, table.SubRuleSetCount = [rules], 1
            lookup.LookupType, lookup.SubTable = 5, [table]

        font = self.font("lookup x { sub a by x; } x; feature calt { sub a' lookup x b'; } calt;",
                         to_format_1)
        mine, other = self.both(font, "ab")
        self.assertEqual(self.ids(mine), ["a", "b"])
        self.assertEqual(self.ids(other), ["x", "b"])

    def test_positioning_contexts_skip_nothing_from_left_to_right(self):
        font = self.font("lookup m { pos a <50 0 50 0>; } m; "
                         "feature kern { lookupflag IgnoreMarks; pos a' lookup m b'; } kern;")
        mine, other = self.both(font, "a\u0323b")
        self.assertEqual(mine[0]["ax"], self.WIDTH)
        self.assertEqual(other[0]["ax"], self.WIDTH + 50)

    def test_marks_on_ligatures_are_mirrored_in_y_from_left_to_right(self):
        font = self.font("feature liga { lookupflag IgnoreMarks; sub f i by f_i; } liga; "
                         "markClass acute <anchor 10 20> @TOP; "
                         "feature mark { pos ligature f_i <anchor 100 700> mark @TOP "
                         "ligComponent <anchor 300 700> mark @TOP; } mark;")
        mine, other = self.both(font, "fi\u0301")
        self.assertEqual(self.ids(mine), ["f_i", "acute"])
        self.assertEqual(other[1]["dy"], 680)
        self.assertEqual(mine[1]["dy"], -680)

    def test_marks_on_marks_without_absolute_placement(self):
        font = self.font("markClass acute <anchor 10 20> @TOP; "
                         "feature mkmk { pos mark acute <anchor 30 400> mark @TOP; } mkmk;")
        mine, other = self.both(font, "a\u0301\u0301")
        self.assertEqual(placed(mine)[2][1:], placed(other)[2][1:])

    def test_deleting_a_glyph(self):
        font = self.font("feature ccmp { sub x by NULL; } ccmp;")
        mine, other = self.both(font, "axb")
        self.assertEqual(self.ids(other), ["a", "b"])
        self.assertEqual(self.ids(mine), ["a", "x", "b"])

    def test_a_script_that_the_font_lacks_has_no_layout(self):
        font = self.font("feature liga { sub f i by f_i; } liga;")
        mine, _ = self.both(font, "fi", "cyrl")
        self.assertEqual(self.ids(mine), ["f", "i"])


class Typeset(ShapeTest):
    """The glyphs on a page are those of the shaped text, in the order in which they are drawn."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="qxfont-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def drawn(self, text, font):
        source, pdf = os.path.join(self.folder, "text"), os.path.join(self.folder, "out.pdf")
        with open(source, "w", encoding="utf-8") as file:
            file.write(text)
        subprocess.run([QXFONT, "typeset", source, "--font", font, "-o", pdf], check=True,
                       capture_output=True)
        plain = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, "-"], check=True,
                               capture_output=True).stdout.decode("latin-1")
        shown = "".join(re.findall(r"^\[(.*)\] TJ$", plain, re.MULTILINE))
        digits = "".join(re.findall("<([0-9a-f]*)>", shown))
        return [int(digits[i:i + 4], 16) for i in range(0, len(digits), 4)]

    def test_arabic_joins(self):
        font, text = f"{DEJAVU}/DejaVuSans.ttf", "السلام عليكم ورحمة الله"
        other = theirs(font, text, "arab", "--direction=rtl")
        self.assertEqual(self.drawn(text, font), [glyph["g"] for glyph in other])

    def test_runs_of_two_directions(self):
        font, text = f"{DEJAVU}/DejaVuSans.ttf", "office שלום fluff"
        left = theirs(font, "office ", "latn")
        middle = theirs(font, "שלום", "hebr", "--direction=rtl")
        right = theirs(font, " fluff", "latn")
        self.assertEqual(self.drawn(text, font), [glyph["g"] for glyph in left + middle + right])


class Trace(MadeFontTest):
    def run_tool(self, *arguments):
        return subprocess.run([QXFONT, *arguments], capture_output=True, encoding="utf-8",
                              check=False)

    def test_each_lookup_that_changed_something(self):
        font = self.font("feature liga { sub f i by f_i; } liga; feature kern { pos a b -40; } kern;")
        done = self.run_tool("shape", font, "fiab", "--script", "latn", "--trace")
        lines = done.stdout.splitlines()
        self.assertEqual(lines[:2], ["GSUB 0 liga: 6@0+500 1@2+500 2@3+500",
                                     "GPOS 0 kern: 6@0+500 1@2+460 2@3+500"])

    def test_stands_beside_json_on_standard_error(self):
        font = self.font("feature liga { sub f i by f_i; } liga;")
        done = self.run_tool("shape", font, "fi", "--script", "latn", "--trace", "--json")
        self.assertEqual(len(json.loads(done.stdout)), 1)
        self.assertEqual(done.stderr, "GSUB 0 liga: 6@0+500\n")

    def test_features(self):
        font = self.font("feature liga { sub f i by f_i; } liga; feature kern { pos a b -40; } kern;")
        done = self.run_tool("features", font, "--script", "latn", "--json")
        self.assertEqual(json.loads(done.stdout), {"gsub": ["liga"], "gpos": ["kern"],
                                                   "gsub_default": True, "gpos_default": True})
        done = self.run_tool("features", font, "--script", "latin")
        self.assertEqual(done.returncode, 2)


if __name__ == "__main__":
    unittest.main()
