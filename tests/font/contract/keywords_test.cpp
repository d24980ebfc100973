#include "font/contract/keywords.h"

#include <gtest/gtest.h>

#include <string>

#include "qxcommon/name.h"

namespace QXFontService_NS {
namespace {

std::string text(int index) {
  std::string result;
  return FS_KeywordText(index).toUTF8String(result);
}

// clang-format off
const char* const kWords[] = {
    "", "BaseFontBlend", "BaseFontName", "BlueFuzz", "BlueScale", "BlueShift", "BlueValues",
    "CIDCount", "CIDFontRevision", "CIDFontType", "CIDFontVersion", "CharStrings",
    "CharstringType", "Copyright", "Encoding", "ExpansionFactor", "FDArray", "FDSelect",
    "FamilyBlues", "FamilyName", "FamilyOtherBlues", "FontBBox", "FontMatrix", "FontName",
    "ForceBold", "FullName", "ItalicAngle", "LanguageGroup", "Notice", "OtherBlues", "PaintType",
    "PostScript", "Private", "ROS", "StdHW", "StdVW", "StemSnapH", "StemSnapV", "StrokeWidth",
    "Subrs", "SyntheticBase", "UIDBase", "UnderlinePosition", "UnderlineThickness", "UniqueID",
    "Weight", "XUID", "abs", "add", "afm", "alias", "and", "baseline-adjust", "blend", "bold",
    "callgsubr", "callothersubr", "callsubr", "charset", "closepath", "cntrmask", "condensed",
    "default", "defaultWidthX", "demi", "disable", "div", "dotsection", "drop", "dup", "enable",
    "end", "endchar", "entry", "eq", "eudc-map", "eudc-processing", "eudc-range",
    "eudc-system-default", "exch", "expanded", "extra", "false", "family-name", "file",
    "file-path", "flex", "flex1", "font-alias", "font-config", "font-entry", "font-exclude",
    "font-folder", "font-size-adjust", "get", "glyph-list", "hflex", "hflex1", "hhcurveto",
    "hintmask", "hlineto", "hmoveto", "hsbw", "hstem", "hstem3", "hstemhm", "hvcurveto", "ifelse",
    "index", "initialRandomSeed", "isFixedPitch", "italic", "load", "mapping", "mode", "mul",
    "name-processing-mode", "neg", "no", "nominalWidthX", "not", "or", "otf-metrics-mode", "path",
    "pfm", "pop", "put", "random", "rcurveline", "recursive", "reference", "return", "rlinecurve",
    "rlineto", "rmoveto", "roll", "rrcurveto", "sbw", "seac", "semi", "setcurrentpoint",
    "skip-glyphname-mapping", "sqrt", "start", "store", "stretch", "sub", "true", "typographic",
    "ultra", "unicode-range", "use-preferred-family", "use-zero-glyph-id", "version", "vhcurveto",
    "vlineto", "vmoveto", "vstem", "vstem3", "vstemhm", "vvcurveto", "weight", "windows",
    "windows-name", "windows-registry", "yes",
};
// clang-format on

TEST(Keywords, HaveTheirNumbers) {
  static_assert(std::size(kWords) == 166);
  ASSERT_EQ(kKeywordCount, 166);
  for (int i = 0; i < kKeywordCount; ++i) EXPECT_EQ(text(i), kWords[i]) << i;
}

TEST(Keywords, StandInCodeUnitOrder) {
  for (int i = 1; i < kKeywordCount; ++i)
    EXPECT_LT(FS_KeywordText(i - 1).compare(FS_KeywordText(i)), 0) << i;
}

TEST(Keywords, AnIndexOutsideTheTableGivesTheEmptyTextAndName) {
  for (const int index : {-2147483647 - 1, -1, 0, 166, 1000, 2147483647}) {
    EXPECT_EQ(text(index), "") << index;
    EXPECT_EQ(FS_KeywordName(index).getNameEnum(), QXCommonNS::QXNAME_EMPTY) << index;
  }
}

TEST(Keywords, AreFoundByTheirText) {
  for (int i = 0; i < kKeywordCount; ++i) EXPECT_EQ(FS_KeywordIndex(FS_KeywordText(i)), i);
}

TEST(Keywords, AnUnknownTextIsNone) {
  for (const char16_t* word : {u"", u"ABS", u"copyright", u"yes ", u"zzz", u"Base", u"cntmask"})
    EXPECT_EQ(FS_KeywordIndex(word), 0);
}

TEST(Keywords, TheirNamesAreThoseOfTheirTexts) {
  for (int i = 0; i < kKeywordCount; ++i)
    EXPECT_TRUE(FS_KeywordName(i) == QXName(FS_KeywordText(i))) << i;
}

}  // namespace
}  // namespace QXFontService_NS
