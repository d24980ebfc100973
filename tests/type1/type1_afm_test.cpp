#include "type1/type1_afm.h"

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/error_codes.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

using qxtest::AfmBuilder;
using qxtest::Type1Builder;
using qxtest::utf8;

constexpr auto kAnyLanguage = QXLang::LANGID_DEFAULT;

class Type1Afm : public qxtest::Type1Test {
 protected:
  /// A box of 1250 from bottom to top.
  static AfmBuilder letters() {
    AfmBuilder file;
    file.glyph(32, 250, "space").glyph(65, 700, "A").glyph(66, 600, "B");
    file.glyph(45, 333, "hyphen").glyph(200, 111, "a1").glyph(-1, 500, "Euro");
    return file;
  }
  static float width(FS_Type1AFM& font, const char16_t* text, int size = -1000) {
    return font.getTextWidth(text, size, false, nullptr, 0);
  }
  static int firstMissing(FS_Type1AFM& font, const char16_t* text) {
    int missing = 7;
    font.getTextWidth(text, -1000, false, &missing, 0);
    return missing;
  }
};

TEST_F(Type1Afm, TellsWhatItIs) {
  auto& font = make<FS_Type1AFM>("/f/a.afm");
  EXPECT_EQ(font.getClassID(), 0xE0D8C304u);
  for (const unsigned int id : {0xE0D8C304u, 0xA76A5E02u, 0x523A46D6u, 0xD18D040Au, 0xDF537371u})
    EXPECT_TRUE(font.isKindOf(id)) << id;
  EXPECT_FALSE(font.isKindOf(0xEE4D2140u));
  EXPECT_EQ(utf8(font.getClassName()), "FS_Type1AFM");
  EXPECT_EQ(static_cast<int>(font.getFontFileType(0)), 3);
  EXPECT_EQ(static_cast<int>(font.getFontFileType2(0)), 3);
  EXPECT_TRUE(font.isType1Font());
  EXPECT_FALSE(font.isTrueTypeFont());
  EXPECT_TRUE(font.isType1OrNoCID(0));
  EXPECT_FALSE(font.isTrueTypeOrCID(0));
  EXPECT_FALSE(font.isOpenType());
  EXPECT_EQ(font.getEntryCount(), 1);
}

TEST_F(Type1Afm, NamesDoNotDependOnTheLanguage) {
  AfmBuilder file;
  file.headers = {"Copyright (c) Nobody"};
  auto& font = afm(file);
  for (const auto language : {kAnyLanguage, QXLang::LanguageID(0x411)}) {
    EXPECT_EQ(utf8(font.getFamilyName(language, 0)), "Made");
    EXPECT_EQ(utf8(font.getFullFontName(language, 0)), "Made Roman");
    EXPECT_EQ(utf8(font.getPostScriptName(language, 0)), "Made-Roman");
    EXPECT_EQ(utf8(font.getSubFamilyName(language, 0)), "Roman");
    EXPECT_EQ(utf8(font.getCopyright(language, 0)), "(c) Nobody");
  }
}

TEST_F(Type1Afm, TheStyleIsWhatTheFullNameHasBehindTheFamily) {
  const struct {
    const char* full;
    const char* style;
  } rows[] = {{"Made", "Medium"}, {"Made  Bold Italic ", "Bold Italic"}, {"Other", ""}};
  for (const auto& row : rows) {
    AfmBuilder file;
    file.fullName = row.full;
    EXPECT_EQ(utf8(afm(file).getSubFamilyName(kAnyLanguage, 0)), row.style) << row.full;
  }
}

TEST_F(Type1Afm, Style) {
  AfmBuilder file;
  file.weight = "Bold";
  file.headers = {"ItalicAngle -12", "IsFixedPitch true"};
  auto& font = afm(file);
  EXPECT_EQ(font.getFontWeight(0), 700);
  EXPECT_TRUE(font.isItalicFont(0));
  EXPECT_TRUE(font.isFixedWidthFont(0));
  EXPECT_EQ(font.getFontStretch(0), 5);
  auto& upright = afm(AfmBuilder());
  EXPECT_FALSE(upright.isItalicFont(0));
  EXPECT_FALSE(upright.isFixedWidthFont(0));
  EXPECT_FALSE(upright.isSerifLikeFont(0));
}

TEST_F(Type1Afm, ANegativeSizeIsAnEmAndOthersTheHeightOfTheBox) {
  auto& font = afm(letters());
  EXPECT_EQ(width(font, u"AB", -1000), 1300);
  EXPECT_EQ(width(font, u"AB", -10), 1300.0F / 1000 * 10);
  EXPECT_EQ(width(font, u"AB", 10), 1300.0F / 1250 * 10);
  EXPECT_EQ(width(font, u"AB", 0), 0);
  EXPECT_EQ(width(font, u"AB", INT_MIN), 1300.0F / 1000 * 2147483648.0F);
  EXPECT_EQ(width(font, u""), 0);
}

TEST_F(Type1Afm, WithoutABoxSizesOfItsHeightGiveNothing) {
  AfmBuilder file = letters();
  file.fontBBox = "0 0 0 0";
  auto& font = afm(file);
  EXPECT_EQ(width(font, u"A", 10), 0);
  EXPECT_EQ(width(font, u"A", -1000), 700);
}

TEST_F(Type1Afm, WidthsGoByGlyphNames) {
  auto& font = afm(letters());
  EXPECT_EQ(width(font, u"\u20AC"), 500);
  EXPECT_EQ(width(font, u"\u00A0"), 250) << "as wide as the space";
  EXPECT_EQ(width(font, u"\u00AD"), 333) << "as wide as the hyphen";
  EXPECT_EQ(firstMissing(font, u"A\u20AC"), -1);
}

TEST_F(Type1Afm, MissingCharactersAreToldByTheFirstIndexAndAddNothing) {
  auto& font = afm(letters());
  EXPECT_EQ(firstMissing(font, u"A\U0001F600\u4E00B"), 1);
  EXPECT_EQ(firstMissing(font, u"\U0001F600A"), 0);
  EXPECT_EQ(width(font, u"A\u4E00"), 700);
  EXPECT_EQ(width(font, u"\u00C8"), 0) << "a code means nothing in a font that is not symbolic";
}

TEST_F(Type1Afm, WithAGlyphListMissingCharactersAreAsWideAsItsSpace) {
  glyphList("0020;A\n0041;B\n0043;Missing\n");
  auto& font = afm(letters());
  EXPECT_EQ(width(font, u"A"), 600);
  EXPECT_EQ(width(font, u"\u4E00"), 700);
  EXPECT_EQ(width(font, u"B"), 600) << "not listed: by its own name";
  EXPECT_EQ(firstMissing(font, u"AB\u4E00"), 2);
}

TEST_F(Type1Afm, AListedGlyphWithoutMetricsIsMissing) {
  glyphList("0041;Missing\n");
  auto& font = afm(letters());
  EXPECT_EQ(width(font, u"AB"), 600) << "the list replaces the character's own name";
  EXPECT_EQ(firstMissing(font, u"AB"), 0);
}

TEST_F(Type1Afm, SymbolicFontsAreMeasuredByCodesToo) {
  AfmBuilder file = letters();
  file.encodingScheme = "FontSpecific";
  file.glyph(31, 77, "a2").glyph(256, 88, "a3");
  auto& font = afm(file);
  EXPECT_EQ(width(font, u"\u00C8"), 111);
  EXPECT_EQ(width(font, u"\uF0C8"), 111);
  EXPECT_EQ(width(font, u"\uF041"), 700);
  EXPECT_EQ(width(font, u"\u001F"), 0);
  EXPECT_EQ(width(font, u"\u0100"), 0);
  EXPECT_EQ(firstMissing(font, u"A\u00A0"), 1) << "no other glyph for a character";
}

TEST_F(Type1Afm, DirectCodesAreMeasuredByCodesAlone) {
  options("a.afm").skipGlyphnameMapping = true;
  auto& font = afm(letters());
  EXPECT_EQ(width(font, u"A\u00C8"), 811);
  EXPECT_EQ(width(font, u"\u20AC"), 0);
  EXPECT_EQ(firstMissing(font, u"A\u20AC"), 1);
  options("a.afm").skipGlyphnameMapping = false;
}

TEST_F(Type1Afm, OfTwoGlyphsUnderOneNameOrCodeTheFirstCounts) {
  AfmBuilder file;
  file.glyph(65, 100, "A").glyph(65, 200, "B").glyph(66, 300, "A");
  options("a.afm").skipGlyphnameMapping = true;
  EXPECT_EQ(width(afm(file), u"A"), 100);
  options("a.afm").skipGlyphnameMapping = false;
  EXPECT_EQ(width(afm(file), u"AB"), 300);
}

TEST_F(Type1Afm, KerningIsByCharacters) {
  AfmBuilder file = letters();
  file.kern("A", "B", -80).kern("A", "Euro", 20);
  auto& font = afm(file);
  EXPECT_TRUE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue('A', 'B', -1000, false, 0), -80);
  EXPECT_EQ(font.getPairKerningValue('A', 'B', -10, false, 0), -80.0F / 1000 * 10);
  EXPECT_EQ(font.getPairKerningValue('A', 'B', 10, false, 0), -80) << "raw";
  EXPECT_EQ(font.getPairKerningValue('A', 'B', 0, false, 0), -80);
  EXPECT_EQ(font.getPairKerningValue('A', 0x20AC, -1000, false, 0), 20);
  EXPECT_EQ(font.getPairKerningValue('B', 'A', -1000, false, 0), 0);
  EXPECT_FALSE(afm(letters()).hasPairKerningInfo(false, 0));
}

TEST_F(Type1Afm, HeightsAreInEmAndLettersBelowOneHaveNone) {
  AfmBuilder file;
  file.headers = {"CapHeight 662", "XHeight 450", "Ascender 683", "Descender -217"};
  auto& font = afm(file);
  EXPECT_EQ(font.getCapHeight(0), 0.662F);
  EXPECT_EQ(font.getXHeight(0), 0.45F);
  EXPECT_EQ(font.getTypoAscender(0), 0.683F);
  EXPECT_EQ(font.getTypoDescender(0), -0.217F);
  file.headers = {"CapHeight 0.5", "XHeight -3"};
  auto& low = afm(file);
  EXPECT_EQ(low.getCapHeight(0), 0);
  EXPECT_EQ(low.getXHeight(0), 0);
}

TEST_F(Type1Afm, TextMetricsAreThoseOfTheBox) {
  AfmBuilder file = letters();
  file.headers = {"ItalicAngle -12", "CapHeight 500", "IsFixedPitch true"};
  auto& font = afm(file);
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(font.getOutlineTextMetrics(metrics, -1000, 0));
  EXPECT_EQ(metrics.getAscent(), 1050);
  EXPECT_EQ(metrics.getDescent(), 200);
  EXPECT_EQ(metrics.getCapHeight(), 500);
  EXPECT_EQ(metrics.getExternalLeading(), 250) << "what the box is higher than the em";
  EXPECT_EQ(metrics.getMaxCharWidth(), 700);
  EXPECT_EQ(metrics.getAveCharWidth(), (250.0F + 700 + 600 + 333 + 111 + 500) / 6);
  EXPECT_EQ(metrics.getItalicAngle(), -12);
  EXPECT_EQ(metrics.getBBoxLeft(), -50);
  EXPECT_EQ(metrics.getBBoxBottom(), -200);
  EXPECT_EQ(metrics.getBBoxRight(), 1000);
  EXPECT_EQ(metrics.getBBoxTop(), 1050);
  EXPECT_EQ(metrics.getPitchAndFamily() & 1, 0u);
  ASSERT_TRUE(font.getOutlineTextMetrics(metrics, 25, 0));
  EXPECT_EQ(metrics.getAscent(), 1050.0F / 1250 * 25);
  EXPECT_EQ(metrics.getItalicAngle(), -12) << "no length";
  ASSERT_TRUE(font.getNewTextMetricEx(metrics, 0));
  EXPECT_EQ(metrics.getAscent(), 1050);
}

TEST_F(Type1Afm, ABoxLowerThanTheEmHasNoExternalLeading) {
  AfmBuilder file;
  file.fontBBox = "0 -200 1000 700";
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(afm(file).getOutlineTextMetrics(metrics, -1000, 0));
  EXPECT_EQ(metrics.getExternalLeading(), 0);
  EXPECT_EQ(metrics.getMaxCharWidth(), 0) << "no glyphs";
  EXPECT_EQ(metrics.getAveCharWidth(), 0);
  EXPECT_EQ(metrics.getPitchAndFamily() & 1, 1u);
}

TEST_F(Type1Afm, AStandardFontWithoutItsProgramHasTheStandardBox) {
  AfmBuilder file;
  file.fontName = "Times-Italic";
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(afm(file).getOutlineTextMetrics(metrics, -1000, 0));
  EXPECT_EQ(metrics.getAscent(), 891);
  EXPECT_EQ(metrics.getDescent(), 216);
  EXPECT_EQ(metrics.getBBoxTop(), 1023);
  EXPECT_EQ(metrics.getBBoxLeft(), -498);
  EXPECT_EQ(metrics.getItalicAngle(), -15.5F);
  world.file("/f/a.pfb", Type1Builder().glyph(".notdef", qxtest::type1Box(250, 10)).pfb());
  ASSERT_TRUE(afm(file).getOutlineTextMetrics(metrics, -1000, 0));
  EXPECT_EQ(metrics.getAscent(), 1050) << "with its program, that of the file";
}

TEST_F(Type1Afm, MetricsNameTheOptionsOfTheirFile) {
  options("a.afm").baselineAdjust = 0.5F;
  FS_NewTextMetricEx metrics;
  ASSERT_TRUE(afm(letters()).getOutlineTextMetrics(metrics, -1000, 0));
  EXPECT_EQ(metrics.getFileOptions(), &options("a.afm"));
}

TEST_F(Type1Afm, EncodingsAndSymbols) {
  const struct {
    const char* name;
    int scheme;
    bool symbolic;
  } rows[] = {{"AdobeStandardEncoding", 1, false}, {"WinAnsiEncoding", 2, false},
              {"MacRomanEncoding", 3, false},      {"MacExpertEncoding", 4, false},
              {"FontSpecific", 5, true},           {"fontspecific", 1, false}};
  for (const auto& row : rows) {
    AfmBuilder file;
    file.encodingScheme = row.name;
    auto& font = afm(file);
    EXPECT_EQ(static_cast<int>(font.getEncodingScheme(0)), row.scheme) << row.name;
    EXPECT_EQ(font.isSymbolicFont(0), row.symbolic) << row.name;
  }
}

TEST_F(Type1Afm, AProgramDecidesWhetherAFontIsSymbolicWhateverItsMetricsSay) {
  world.file("/f/a.pfb", Type1Builder().glyph(".notdef", qxtest::type1Box(250, 10)).pfb());
  AfmBuilder file;
  file.encodingScheme = "FontSpecific";
  EXPECT_FALSE(afm(file).isSymbolicFont(0));
}

TEST_F(Type1Afm, WhatCannotBeEmbeddedWithoutAProgram) {
  auto& font = afm(letters());
  EXPECT_EQ(static_cast<int>(font.getEmbedStatus(0)), 1);
  EXPECT_FALSE(font.isEmbeddingAllowed(0));
  EXPECT_FALSE(font.canEmbedFont(0));
  EXPECT_EQ(font.getEmbedableCharCount(0), 6u);
  EXPECT_EQ(font.getUnitsPerEm(0), 1000);
  EXPECT_EQ(font.getGlyphID('A', false, 0), FS_NO_GLYPH);
  EXPECT_FALSE(font.hasVerticalGlyph(0));
  EXPECT_EQ(font.getFreeTypeFace(0), nullptr);
  EXPECT_FALSE(font.loadGlyph(0, 0));
  EXPECT_FALSE(embed(font, 0, "A").done);
  EXPECT_FALSE(embedAll(font).done);
  EXPECT_EQ(embedAll(font).bytes, "");
}

TEST_F(Type1Afm, LogFontHasNamesAndStyle) {
  AfmBuilder file;
  file.weight = "Bold";
  FS_EnumLogFontEx out;
  ASSERT_TRUE(afm(file).getLogFont(out, 0));
  EXPECT_EQ(out.getWeight(), 700);
  EXPECT_FALSE(out.isItalic());
  EXPECT_EQ(utf8(out.getFaceName()), "Made");
  EXPECT_EQ(utf8(out.getFullName()), "Made Roman");
}

TEST_F(Type1Afm, ALineThatMakesNoSenseFailsTheFont) {
  world.file("/f/b.afm", "FontName X\nFontBBox 1 2 3\n");
  auto& font = make<FS_Type1AFM>("/f/b.afm");
  EXPECT_FALSE(font.readFont(&error, nullptr));
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_FILE);
  EXPECT_EQ(message(), "Font file error: in line #2 : FontBBox\n/f/b.afm");
  EXPECT_FALSE(make<FS_Type1AFM>("/f/b.afm").readFont(nullptr, nullptr)) << "with nobody to tell";
}

TEST_F(Type1Afm, AFileThatIsNotThereFails) {
  EXPECT_FALSE(make<FS_Type1AFM>("/f/none.afm").readFont(&error, nullptr));
  EXPECT_EQ(error.getErrorCode(), FS_ERROR_FONT_READ);
}

TEST_F(Type1Afm, AnEudcLinkIsKept) {
  auto& font = afm(letters());
  EXPECT_EQ(font.getEudcFont(0).font, nullptr);
  auto& other = make<FS_Type1AFM>("/f/b.afm");
  font.setEudcFont({&other, 3}, 0);
  EXPECT_EQ(font.getEudcFont(0).font, &other);
  EXPECT_EQ(font.getEudcFont(0).entry, 3);
}

TEST_F(Type1Afm, CutAnywhereItReadsOrFailsWithALine) {
  AfmBuilder file = letters();
  file.kern("A", "B", -80);
  const std::string text = file.build();
  for (std::size_t size = 0; size < text.size(); ++size) {
    world.file("/f/b.afm", text.substr(0, size));
    auto& font = make<FS_Type1AFM>("/f/b.afm");
    QXError report;
    const int code = font.readFont(&report, nullptr) ? 0 : int{FS_ERROR_FONT_FILE};
    EXPECT_EQ(report.getErrorCode(), code) << size;
    width(font, u"A\u20ACx");
    font.getType1CharCode(0x20AC, 0);
  }
}

}  // namespace
}  // namespace QXFontService_NS
