#include "type1/type1_pfm.h"

#include "qxfontservice/error_codes.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "support/truncation.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::PfmBuilder;
using qxtest::Type1Builder;
using qxtest::utf8;

constexpr auto kAnyLanguage = QXLang::LANGID_DEFAULT;

class Type1Pfm : public qxtest::Type1Test {
 protected:
  static float width(FS_Type1PFM& font, const char16_t* text, int size = -1000) {
    return font.getTextWidth(text, size, false, nullptr, 0);
  }
  static int firstMissing(FS_Type1PFM& font, const char16_t* text) {
    int missing = 7;
    font.getTextWidth(text, -1000, false, &missing, 0);
    return missing;
  }
  /// Puts a program beside the metrics, with an "A" 500 wide and a box 1000 high.
  void putProgram(const std::vector<std::string>& headers = {},
                  const std::vector<std::pair<int, std::string>>& codes = {}) {
    Type1Builder font;
    for (const std::string& line : headers) font.header(line);
    const std::string box = qxtest::type1Box(500, 100);
    world.file("/f/a.pfb", font.encoding(codes).glyph(".notdef", box).glyph("A", box).pfb());
  }
};

TEST_F(Type1Pfm, TellsWhatItIs) {
  auto& font = make<FS_Type1PFM>("/f/a.pfm");
  EXPECT_EQ(font.getClassID(), 0xEE4D2140u);
  EXPECT_TRUE(font.isKindOf(0xA76A5E02u));
  EXPECT_FALSE(font.isKindOf(0xE0D8C304u));
  EXPECT_EQ(utf8(font.getClassName()), "FS_Type1PFM");
  EXPECT_EQ(static_cast<int>(font.getFontFileType(0)), 4);
}

TEST_F(Type1Pfm, NamesAreInTheCodePageOfTheFont) {
  PfmBuilder file;
  file.charSet = 204;
  file.face = "\xCA\xED";  // U+041A U+043D
  file.font = "Kn-Roman";
  auto& font = pfm(file);
  EXPECT_EQ(font.getFamilyName(kAnyLanguage, 0), u"\u041A\u043D");
  EXPECT_EQ(font.getFullFontName(kAnyLanguage, 0), u"\u041A\u043D");
  EXPECT_EQ(utf8(font.getPostScriptName(kAnyLanguage, 0)), "Kn-Roman");
  EXPECT_EQ(utf8(font.getSubFamilyName(kAnyLanguage, 0)), "");
  EXPECT_EQ(utf8(font.getCopyright(kAnyLanguage, 0)), "(c) Nobody");
}

TEST_F(Type1Pfm, AProgramGivesTheFullNameAndTheStyle) {
  putProgram({"/FullName (Made Bold) readonly def", "/FamilyName (Made) readonly def"});
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(utf8(font.getFullFontName(kAnyLanguage, 0)), "Made Bold");
  EXPECT_EQ(utf8(font.getSubFamilyName(kAnyLanguage, 0)), "Bold");
  EXPECT_EQ(utf8(font.getFamilyName(kAnyLanguage, 0)), "Made");
}

TEST_F(Type1Pfm, StyleIsThatOfTheFile) {
  PfmBuilder file;
  file.italic = true;
  file.weight = 650;
  auto& font = pfm(file);
  EXPECT_EQ(font.getFontWeight(0), 650);
  EXPECT_TRUE(font.isItalicFont(0));
  EXPECT_EQ(font.getXHeight(0), 0.45F);
  EXPECT_EQ(font.getCapHeight(0), 0);
  EXPECT_EQ(font.getTypoAscender(0), 0);
  EXPECT_EQ(font.getTypoDescender(0), 0);
}

TEST_F(Type1Pfm, PitchAndFamily) {
  const struct {
    unsigned value;
    bool fixed, serif, script;
  } rows[] = {{0x00, true, false, false},  {0x01, false, false, false}, {0x11, false, true, false},
              {0x31, false, false, false}, {0x41, false, false, true},  {0x90, true, true, false}};
  for (const auto& row : rows) {
    PfmBuilder file;
    file.pitchAndFamily = row.value;
    auto& font = pfm(file);
    EXPECT_EQ(font.isFixedWidthFont(0), row.fixed) << row.value;
    EXPECT_EQ(font.isSerifLikeFont(0), row.serif) << row.value;
    EXPECT_EQ(font.isScriptLikeFont(0), row.script) << row.value;
  }
}

TEST_F(Type1Pfm, EncodingsWithoutAProgramGoByTheCharacterSet) {
  const std::pair<unsigned, int> rows[] = {{0, 2}, {2, 5}, {1, 1}, {204, 1}};
  for (const auto& [charSet, scheme] : rows) {
    PfmBuilder file;
    file.charSet = charSet;
    EXPECT_EQ(static_cast<int>(pfm(file).getEncodingScheme(0)), scheme) << charSet;
  }
}

TEST_F(Type1Pfm, EncodingsWithAProgramGoByItsName) {
  PfmBuilder symbols;
  symbols.charSet = 2;
  putProgram();
  EXPECT_EQ(static_cast<int>(pfm(symbols).getEncodingScheme(0)), 1) << "StandardEncoding";
  putProgram({}, {{65, "A"}});
  auto& font = pfm(symbols);
  EXPECT_EQ(static_cast<int>(font.getEncodingScheme(0)), 1) << "made in place: no name";
  EXPECT_TRUE(font.isSymbolicFont(0));
}

TEST_F(Type1Pfm, WidthsGoByTheCodesOfTheCodePage) {
  PfmBuilder file;
  file.charSet = 204;
  file.firstChar = 32;
  file.lastChar = 255;
  file.widths.assign(224, 100);
  file.widths[0xCA - 32] = 777;
  auto& font = pfm(file);
  EXPECT_EQ(width(font, u"\u041A\u043D"), 877);
  EXPECT_EQ(firstMissing(font, u"\u041A\u043D"), -1);
  EXPECT_EQ(width(font, u"\u041A\u4E00"), 777) << "not in the code page";
  EXPECT_EQ(firstMissing(font, u"\u041A\u4E00"), 1);
  EXPECT_EQ(firstMissing(font, u"A\U0001F600"), 1);
}

TEST_F(Type1Pfm, CodesOutsideTheRangeAreMissing) {
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(width(font, u" !\""), 250 + 333 + 408);
  EXPECT_EQ(width(font, u"!#"), 333);
  EXPECT_EQ(firstMissing(font, u"!#\t"), 1);
  EXPECT_EQ(firstMissing(font, u"\u001F"), 0);
}

TEST_F(Type1Pfm, WithoutAWidthTableNothingIsWideAndNothingMissing) {
  PfmBuilder file;
  file.hasWidths = false;
  auto& font = pfm(file);
  EXPECT_EQ(width(font, u"!"), 0);
  EXPECT_EQ(firstMissing(font, u"!"), -1);
}

TEST_F(Type1Pfm, APositiveSizeIsTheAscentWithoutAProgram) {
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(width(font, u"!", 10), 333.0F / 750 * 10);
  EXPECT_EQ(width(font, u"!", -10), 333.0F / 1000 * 10);
  EXPECT_EQ(width(font, u"!", 0), 0);
  PfmBuilder flat;
  flat.ascent = 0;
  EXPECT_EQ(width(pfm(flat), u"!", 10), 0);
}

TEST_F(Type1Pfm, AProgramMeasuresByItsGlyphsAndItsBox) {
  putProgram();
  auto& font = pfm(PfmBuilder());
  EXPECT_EQ(width(font, u"A"), 500);
  EXPECT_EQ(width(font, u"A", 10), 500.0F / 1000 * 10) << "a box from -200 to 800";
  EXPECT_EQ(width(font, u"!"), 0);
  EXPECT_EQ(firstMissing(font, u"A!"), 1);
}

TEST_F(Type1Pfm, AStandardFontIsMeasuredByItsTableWhereItsEncodingHasAKnownName) {
  PfmBuilder file;
  file.font = "Helvetica";
  putProgram();
  EXPECT_EQ(width(pfm(file), u"A"), 500) << "StandardEncoding is none of the known names";
  Type1Builder program;
  program.glyph(".notdef", qxtest::type1Box(1, 1)).header("/Encoding WinAnsiEncoding def");
  std::string segments = program.pfb();
  const std::string standard = "/Encoding StandardEncoding def\n";
  const std::size_t at = segments.find(standard);
  segments.replace(at, standard.size(), std::string(standard.size() - 1, ' ') + "\n");
  world.file("/f/a.pfb", segments);
  auto& font = pfm(file);
  ASSERT_EQ(static_cast<int>(font.getEncodingScheme(0)), 2);
  EXPECT_EQ(width(font, u"!"), 333);
  EXPECT_EQ(firstMissing(font, u"A"), 0);
}

TEST_F(Type1Pfm, KerningIsByCodes) {
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}};
  auto& font = pfm(file);
  EXPECT_TRUE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue(32, 33, -1000, false, 0), -40);
  EXPECT_EQ(font.getPairKerningValue(32, 33, 10, false, 0), -40);
  EXPECT_EQ(font.getPairKerningValue(32, 34, -1000, false, 0), 0);
  EXPECT_EQ(font.getPairKerningValue(0x120, 33, -1000, false, 0), 0) << "no code of a byte";
  EXPECT_FALSE(pfm(PfmBuilder()).hasPairKerningInfo(false, 0));
}

TEST_F(Type1Pfm, WithoutExtendedMetricsThereAreNoPairsWhereverTheirTableStands) {
  PfmBuilder file;
  file.hasTextMetrics = false;
  file.kernPairs = {{{32, 33}, -40}};
  EXPECT_FALSE(pfm(file).hasPairKerningInfo(false, 0));
}

TEST_F(Type1Pfm, TextMetricsOfAStandardFont) {
  PfmBuilder file;
  file.font = "courier-boldoblique";
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(pfm(file).getOutlineTextMetrics(metrics, 1051, 0));
  EXPECT_FLOAT_EQ(metrics.getAscent(), 801);
  EXPECT_FLOAT_EQ(metrics.getDescent(), 250);
  EXPECT_FLOAT_EQ(metrics.getBBoxRight(), 749);
  EXPECT_EQ(metrics.getItalicAngle(), -12);
  EXPECT_FLOAT_EQ(metrics.getAveCharWidth(), 500);
  EXPECT_FLOAT_EQ(metrics.getMaxCharWidth(), 900);
  EXPECT_FLOAT_EQ(metrics.getInternalLeadingA(), 50);
  EXPECT_FLOAT_EQ(metrics.getInternalLeadingD(), 50);
  EXPECT_EQ(metrics.getPitchAndFamily(), 0x11u);
  ASSERT_TRUE(pfm(file).getOutlineTextMetrics(metrics, -951, 0));
  EXPECT_FLOAT_EQ(metrics.getAscent(), 801) << "an em is the box without the internal leading";
}

TEST_F(Type1Pfm, TextMetricsOfAProgram) {
  putProgram({"/ItalicAngle -9.5 def"});
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(pfm(PfmBuilder()).getOutlineTextMetrics(metrics, 1000, 0));
  EXPECT_EQ(metrics.getAscent(), 800);
  EXPECT_EQ(metrics.getDescent(), 200);
  EXPECT_EQ(metrics.getItalicAngle(), -9.5F);
}

TEST_F(Type1Pfm, TextMetricsWithNeitherAreZero) {
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(pfm(PfmBuilder()).getOutlineTextMetrics(metrics, 1000, 0));
  EXPECT_EQ(metrics.getAscent(), 0);
  EXPECT_EQ(metrics.getAveCharWidth(), 0);
}

TEST_F(Type1Pfm, CharactersThatCanBeEmbedded) {
  EXPECT_EQ(pfm(PfmBuilder()).getEmbedableCharCount(0), 3u);
  putProgram();
  EXPECT_EQ(pfm(PfmBuilder()).getEmbedableCharCount(0), 1u) << "those of the program";
}

TEST_F(Type1Pfm, AFileOfAHundredBytesFailsWithoutADetail) {
  world.file("/f/b.pfm", PfmBuilder().build().substr(0, 100));
  EXPECT_FALSE(make<FS_Type1PFM>("/f/b.pfm").readFont(&error, nullptr));
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_READ);
  world.file("/f/b.pfm", PfmBuilder().build().substr(0, 140));
  EXPECT_FALSE(make<FS_Type1PFM>("/f/b.pfm").readFont(&error, nullptr));
  EXPECT_EQ(message(), "Font read error: Extension read error\n/f/b.pfm");
}

TEST_F(Type1Pfm, ARangeIsCorrectedSilentlyAndOnlyBeforeAnyReport) {
  PfmBuilder file;
  file.firstChar = 33;
  EXPECT_EQ(pfm(file).getEmbedableCharCount(0), 3u) << "33 is read as 32";
  EXPECT_EQ(error.getErrorCode(), 0);
  error.setErrorCode(7);
  EXPECT_EQ(pfm(file).getEmbedableCharCount(0), 2u);
  file.lastChar = 20;
  EXPECT_EQ(pfm(file).getEmbedableCharCount(0), 0u);
}

TEST_F(Type1Pfm, DamagedAnywhereItAnswers) {
  PfmBuilder file;
  file.kernPairs = {{{32, 33}, -40}};
  qxtest::forEachDamage(file.build(), [&](const std::string& bytes) {
    world.file("/f/b.pfm", bytes);
    auto& font = make<FS_Type1PFM>("/f/b.pfm");
    QXError report;
    const bool read = font.readFont(&report, nullptr);
    EXPECT_EQ(report.getErrorCode(), read ? 0 : int{FS_ERROR_FONT_READ});
    width(font, u" !A");
    font.getType1CharCode('A', 0);
    FS_NewTextMetricEx metrics;
    font.getOutlineTextMetrics(metrics, 12, 0);
  });
}

}  // namespace
}  // namespace QXFontService_NS
