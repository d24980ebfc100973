#include <gtest/gtest.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxfontservice/font_service.h"

#include "font/contract/font_folder.h"
#include "service/echo_font.h"
#include "service/font_info_access.h"

namespace QXFontService_NS {
namespace {

constexpr int kEntry = 3;
constexpr auto kLang = static_cast<QXLang::LanguageID>(0x409);

class NoGlyphMap final : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short) override { return nullptr; }
};

/// What the queries hand over besides plain numbers.
struct Outputs {
  QXMemStream out{nullptr, 4096, false, true};
  std::vector<unsigned short> gids{1, 2};
  unsigned int tags[1] = {0};
  NoGlyphMap map;
  FS_NewTextMetricEx metric;
  FS_CIDSystemInfo system;
  PANOSE panose{};
  UnicodeString name;
  std::string glyphName;
  unsigned char code = 0;
  unsigned short ids[4] = {};
  int a = 0, b = 0, c = 0;
  bool flag = false;
};

struct Row {
  const char* call;
  /// Whether the answer is the font's.
  bool (*query)(const FS_FontInfo&, Outputs&);
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.call;
}

#define QX_ROW(call, expression)                                                                  \
  {                                                                                               \
    call, [](const FS_FontInfo& info, [[maybe_unused]] Outputs& o) -> bool { return expression; } \
  }

const Row kRows[] = {
    QX_ROW("isType1Font", info.isType1Font()),
    QX_ROW("isTrueTypeFont", info.isTrueTypeFont()),
    QX_ROW("isType1OrNoCID 3", info.isType1OrNoCID()),
    QX_ROW("isTrueTypeOrCID 3", info.isTrueTypeOrCID()),
    QX_ROW("isExtraFont 3", info.isExtraFont(&o.a, &o.flag) && o.a == 7 && o.flag),
    QX_ROW("getFontFileType 3", info.getFontFileType() == 7),
    QX_ROW("getFontFileType2 3", info.getFontFileType2() == 7),
    QX_ROW("getFamilyName 1033 3", info.getFamilyName(kLang) == u"7"),
    QX_ROW("getSubFamilyName 1033 3", info.getSubFamilyName(kLang) == u"7"),
    QX_ROW("getFullFontName 1033 3", info.getFullFontName(kLang) == u"7"),
    QX_ROW("getPostScriptName 1033 3", info.getPostScriptName(kLang) == u"7"),
    QX_ROW("getPreferredFamily 1033 3", info.getPreferredFamily(kLang) == u"7"),
    QX_ROW("getPreferredSubFamily 1033 3", info.getPreferredSubFamily(kLang) == u"7"),
    QX_ROW("getPostScriptCIDFindfontName 1033 3", info.getPostScriptCIDFindfontName(kLang) == u"7"),
    QX_ROW("getCopyright 1033 3", info.getCopyright(kLang) == u"7"),
    QX_ROW("getManufacturer 1033 3", info.getManufacturer(kLang) == u"7"),
    QX_ROW("getLicenseDescription 1033 3", info.getLicenseDescription(kLang) == u"7"),
    QX_ROW("getFamilyName 1033 5", FS_FontInfo::getFamilyName(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getSubFamilyName 1033 5",
           FS_FontInfo::getSubFamilyName(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getFullFontName 1033 5",
           FS_FontInfo::getFullFontName(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getPostScriptName 1033 5",
           FS_FontInfo::getPostScriptName(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getPreferredFamily 1033 5",
           FS_FontInfo::getPreferredFamily(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getPreferredSubFamily 1033 5",
           FS_FontInfo::getPreferredSubFamily(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getPostScriptCIDFindfontName 1033 5",
           FS_FontInfo::getPostScriptCIDFindfontName(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getCopyright 1033 5", FS_FontInfo::getCopyright(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getManufacturer 1033 5",
           FS_FontInfo::getManufacturer(info.getFont(), 5, kLang) == u"7"),
    QX_ROW("getLicenseDescription 1033 5",
           FS_FontInfo::getLicenseDescription(info.getFont(), 5, kLang) == u"7"),
    // The name of record is that of the file: its first face answers.
    QX_ROW("getFamilyNameEx 0", info.getFamilyNameEx() == u"7"),
    QX_ROW("getOutlineTextMetrics -12 3", info.getOutlineTextMetrics(o.metric, -12)),
    QX_ROW("getCodePageRangeBitFields 3", info.getCodePageRangeBitFields().bits0 == 7 &&
                                              info.getCodePageRangeBitFields().bits1 == 8),
    QX_ROW("getCapHeight 3", info.getCapHeight() == 7.0F),
    QX_ROW("getXHeight 3", info.getXHeight() == 7.0F),
    QX_ROW("getTypoAscender 3", info.getTypoAscender() == 7.0F),
    QX_ROW("getTypoDescender 3", info.getTypoDescender() == 7.0F),
    QX_ROW("getPanose 3", info.getPanose(o.panose) == &o.panose && o.panose.bWeight == 7),
    QX_ROW("getFamilyClass 3", info.getFamilyClass() == 7),
    QX_ROW("getFamilySubclass 3", info.getFamilySubclass() == 7),
    QX_ROW("getUnitsPerEm 3", info.getUnitsPerEm() == 7),
    QX_ROW("getDefaultCharWidth 10 3", info.getDefaultCharWidth(10) == 7.0F),
    QX_ROW("getDefaultVertOriginY 10 3", info.getDefaultVertOriginY(10) == 7.0F),
    QX_ROW("getTextWidth 3 10 1 3", info.getTextWidth(u"abc", 10, true, &o.a) == 7.0F && o.a == 7),
    QX_ROW("getTextWidth 1 10 0 3", info.getTextWidth('a', 10, false, nullptr) == 7.0F),
    QX_ROW("getTextWidth 2 10 0 3", info.getTextWidth(0x1F600, 10, false, nullptr) == 7.0F),
    QX_ROW("getGlyphWidth 9 10 1 3", info.getGlyphWidth(9, 10, true) == 7.0F),
    QX_ROW("hasPairKerningInfo 1 3", info.hasPairKerningInfo(true)),
    QX_ROW("getPairKerningValue 8 9 10 1 3", info.getPairKerningValue(8, 9, 10, true) == 7.0F),
    QX_ROW("isSymbolicFont 3", info.isSymbolicFont()),
    QX_ROW("isFixedWidthFont 3", info.isFixedWidthFont()),
    QX_ROW("isSerifLikeFont 3", info.isSerifLikeFont()),
    QX_ROW("isScriptLikeFont 3", info.isScriptLikeFont()),
    QX_ROW("getGlyphID 97 1 3", info.getGlyphID('a', true) == 7),
    QX_ROW("getGlyphIDs 3 1 3", info.getGlyphIDs(u"abc", o.ids, o.a, true, nullptr) && o.a == 7),
    QX_ROW("getStringID 9 3", info.getStringID(9) == 7),
    QX_ROW("hasVerticalGlyph 3", info.hasVerticalGlyph()),
    QX_ROW("hasVerticalMetrics 3", info.hasVerticalMetrics()),
    QX_ROW("hasVariationSelector 3", info.hasVariationSelector()),
    QX_ROW("variationSequence 97 65024 3", info.variationSequence('a', 0xFE00) == 7),
    QX_ROW("getGlyphClassDef 9 3", info.getGlyphClassDef(9) == 7),
    QX_ROW("getEncodingScheme 3", info.getEncodingScheme() == 7),
    QX_ROW("getCIDSystemInfo 3", info.getCIDSystemInfo(o.system)),
    QX_ROW("getGSUBGPOSInfo 1 2 3", info.getGSUBGPOSInfo(1, 2) == nullptr),
    QX_ROW("getFontEmbeddingLicence 3", info.getFontEmbeddingLicence() == 7),
    QX_ROW("getEmbedStatus 3", info.getEmbedStatus() == 7),
    QX_ROW("getEmbedableCharCount 3", info.getEmbedableCharCount() == 7),
    QX_ROW("canEmbedFont 3", info.canEmbedFont()),
    QX_ROW("getEmbedFont tags 2 0 3 1", info.getEmbedFont(o.gids, o.out, o.tags)),
    QX_ROW("getEmbedFont tags 2 1 3 1", info.getEmbedFont(o.gids, o.out, nullptr)),
    QX_ROW("getEmbedFont 2 3 1", info.getEmbedFont(o.gids, o.out)),
    QX_ROW("getSVG2EmbedFont 2 3 1", info.getSVG2EmbedFont(o.gids, o.out)),
    QX_ROW("getEmbedFontWithCmap 2 3 1", info.getEmbedFontWithCmap(o.gids, o.out)),
    QX_ROW("getEmbedFontStream 3 1", info.getEmbedFontStream(o.out)),
    QX_ROW("getPSEmbedFont 2 3 1", info.getPSEmbedFont(o.gids, o.out, o.map)),
    QX_ROW("makeWebFont 2 3 1", info.makeWebFont(o.gids, o.out)),
    QX_ROW("makeSubsetFont 2 3 1", info.makeSubsetFont(o.gids, o.out)),
    QX_ROW("makePostScriptCIDFontType0 2 3 1",
           info.makePostScriptCIDFontType0(o.gids, o.out, o.name, o.system) && o.name == u"7" &&
               o.system.Supplement == 7),
    QX_ROW("getType1CharCode 97 3", info.getType1CharCode('a') == 7),
    QX_ROW("getType1GlyphIDCode 9 3", info.getType1GlyphIDCode(9) == 7),
    QX_ROW("getType1CMapArray 9 3", info.getType1CMapArray(9) == nullptr),
    QX_ROW("getType1CMapPair 9 4 3",
           info.getType1CMapPair(9, 4, o.code, o.glyphName) && o.code == 7 && o.glyphName == "7"),
    QX_ROW("getType1GlyphName 9 65 3",
           info.getType1GlyphName(9, 65, o.glyphName) && o.glyphName == "7"),
    QX_ROW("getType1EmbedFont 2 3 1", info.getType1EmbedFont(o.gids, o.out)),
    QX_ROW("getType1EmbedFont codes 9 ab 2 3",
           info.getType1EmbedFont(9, "ab", 2, o.out, o.a, o.b, o.c) && o.a == 1 && o.b == 2 &&
               o.c == 3),
    QX_ROW("getType1FontStream 3",
           info.getType1FontStream(o.out, o.a, o.b, o.c) && o.a == 1 && o.b == 2 && o.c == 3),
};

class FontInfoForward : public testing::TestWithParam<Row> {};

TEST_P(FontInfoForward, PassesItsArgumentsAndItsFaceAndGivesTheAnswerBack) {
  const QXPtr<qxtest::EchoFont> font(new qxtest::EchoFont);
  FS_FontInfo info;
  FontInfoAccess::set(info, font.get(), kEntry);
  Outputs outputs;
  EXPECT_TRUE(GetParam().query(info, outputs));
  EXPECT_EQ(font->call, GetParam().call);
}

INSTANTIATE_TEST_SUITE_P(Rows, FontInfoForward, testing::ValuesIn(kRows));

class FontInfoOfAFont : public testing::Test {
 protected:
  FontInfoOfAFont() { FontInfoAccess::set(info, font.get(), kEntry); }

  QXPtr<qxtest::EchoFont> font{new qxtest::EchoFont};
  FS_FontInfo info;
};

TEST_F(FontInfoOfAFont, ACopyNamesTheSameFontAndCountsNothing) {
  FontInfoAccess::error(info).setErrorCode(7);
  const FS_FontInfo copy = info;
  EXPECT_EQ(copy.getFont(), font.get());
  EXPECT_EQ(copy.getEntry(), kEntry);
  EXPECT_EQ(copy.getError().getErrorCode(), 7);
  EXPECT_EQ(font->refCount.load(), 1);
}

TEST_F(FontInfoOfAFont, DeletingReleasesOnceAndKeepsEntryAndError) {
  font->refCount.fetch_add(1);
  FontInfoAccess::error(info).setErrorCode(7);
  info.deleteFont();
  EXPECT_EQ(font->refCount.load(), 1);
  EXPECT_FALSE(info.isCreatedFont());
  EXPECT_EQ(info.getEntry(), kEntry);
  EXPECT_EQ(info.getError().getErrorCode(), 7);
  info.deleteFont();
  EXPECT_EQ(font->refCount.load(), 1);
}

TEST_F(FontInfoOfAFont, AnEmptyTextAsksNoFont) {
  int missing = 9;
  int count = 9;
  unsigned short ids[1] = {};
  EXPECT_EQ(info.getTextWidth(u"", 10, false, &missing), 0.0F);
  EXPECT_EQ(info.getTextWidth(-1, 10, false, &missing), 0.0F);
  EXPECT_EQ(info.getTextWidth(0x110000, 10, false, &missing), 0.0F);
  EXPECT_FALSE(info.getGlyphIDs(u"", ids, count, false, &missing));
  EXPECT_FALSE(info.getGlyphIDs(u"a", nullptr, count, false, &missing));
  EXPECT_EQ(missing, 9);
  EXPECT_EQ(count, 9);
  EXPECT_EQ(font->call, "");
}

TEST_F(FontInfoOfAFont, TheVerticalOriginOfAGlyphIsZeroWithoutAskingTheFont) {
  EXPECT_EQ(info.getGlyphVertOriginY(1, 10), 0.0F);
  EXPECT_EQ(font->call, "");
}

TEST_F(FontInfoOfAFont, TellsBothStyles) {
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  info.getFontStyle(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 700);
  EXPECT_TRUE(italic);
  EXPECT_EQ(stretch, 7);
  info.getFontStyle2(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 70);
  EXPECT_FALSE(italic);
  EXPECT_EQ(stretch, 3);
  info.getFontStyle(nullptr, nullptr, nullptr);
  info.getFontStyle2(nullptr, nullptr, nullptr);
}

TEST_F(FontInfoOfAFont, WithoutCffDataACidHasNoGlyph) {
  EXPECT_EQ(info.getGlyphIDfromCID(1), 0xFFFF);
}

TEST_F(FontInfoOfAFont, TheFontItselfIsItsBaseFont) {
  EXPECT_EQ(info.getExtraBaseFont(), font.get());
}

TEST(FontInfoAdjusts, AreThoseOfTheFilesOptions) {
  FS_FontFolder folder(u"/fonts", 0, false);
  folder.fileOptions[u"a.ttf"].baselineAdjust = 0.25F;
  folder.fileOptions[u"a.ttf"].fontSizeAdjust = 1.5F;
  const QXPtr<qxtest::PlainFont> with(
      new qxtest::PlainFont(QXUri(u"/fonts/a.ttf", QXCommonNS::URISTR_USER), &folder));
  const QXPtr<qxtest::PlainFont> without(
      new qxtest::PlainFont(QXUri(u"/fonts/b.ttf", QXCommonNS::URISTR_USER), &folder));
  FS_FontInfo info;
  FontInfoAccess::set(info, with.get(), 0);
  EXPECT_EQ(info.getBaselineAdjust(), 0.25F);
  EXPECT_EQ(info.getFontSizeAdjust(), 1.5F);
  EXPECT_TRUE(info.getFontFileName().getText() == u"/fonts/a.ttf");
  EXPECT_TRUE(info.getFontFileName2().getText() == u"/fonts/a.ttf");
  FontInfoAccess::set(info, without.get(), 0);
  EXPECT_EQ(info.getBaselineAdjust(), 0.0F);
  EXPECT_EQ(info.getFontSizeAdjust(), 1.0F);
}

/// A font with one vertical form, of 'v', and none at all for 'x'.
class VerticalFont final : public qxtest::PlainFont {
 public:
  unsigned short getGlyphID(int code, bool vertical, int) const override {
    if (code == 'x') return FS_NO_GLYPH;
    return code == 'v' && vertical ? 2 : 1;
  }
};

TEST(FontInfoVertical, ACharacterHasAVerticalFormWhenItsGlyphsDiffer) {
  const QXPtr<VerticalFont> font(new VerticalFont);
  FS_FontInfo info;
  FontInfoAccess::set(info, font.get(), 0);
  EXPECT_TRUE(info.hasVerticalGlyph('v'));
  EXPECT_FALSE(info.hasVerticalGlyph('a'));
  EXPECT_FALSE(info.hasVerticalGlyph('x'));
  EXPECT_FALSE(info.hasVerticalGlyph());  // the face as a whole is another question
}

/// A font whose data makes its queries give up.
class ThrowingFont final : public qxtest::PlainFont {
 public:
  unsigned short getGlyphID(int, bool, int) const override { throw std::out_of_range("cmap"); }
  bool getEmbedFont(const GlyphIDs&, QXMemStream&, int, std::istream*) override {
    throw std::out_of_range("glyf");
  }
  FS_EMBEDSTATUS getEmbedStatus(int) const override {
    throw QXError(1928, UnicodeString(), UnicodeString(), -1, -1, UnicodeString());
  }
  int getUnitsPerEm(int) const override { throw std::bad_alloc(); }
  float getXHeight(int) const override { throw 7; }
};

TEST(FontInfoBoundary, WhatAFontThrowsBecomesTheNeutralAnswer) {
  const QXPtr<ThrowingFont> font(new ThrowingFont);
  FS_FontInfo info;
  FontInfoAccess::set(info, font.get(), 0);
  QXMemStream out(nullptr, 4096, false, true);
  EXPECT_EQ(info.getGlyphID('a', false), 0xFFFF);
  EXPECT_FALSE(info.getEmbedFont({}, out));
  EXPECT_EQ(info.getEmbedStatus(), 2);
}

TEST(FontInfoBoundary, WantOfMemoryAndForeignExceptionsPass) {
  const QXPtr<ThrowingFont> font(new ThrowingFont);
  FS_FontInfo info;
  FontInfoAccess::set(info, font.get(), 0);
  EXPECT_THROW(info.getUnitsPerEm(), std::bad_alloc);
  EXPECT_THROW(info.getXHeight(), int);
}

}  // namespace
}  // namespace QXFontService_NS
