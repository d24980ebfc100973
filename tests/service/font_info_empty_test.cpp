#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/font_service.h"

namespace QXFontService_NS {
namespace {

constexpr QXLang::LanguageID kLang = QXLang::LANGID_DEFAULT;

class NoGlyphMap final : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short) override { return nullptr; }
};

class EmptyFontInfo : public testing::Test {
 protected:
  const FS_FontInfo info;
  const std::vector<unsigned short> gids{1};
  QXMemStream out{nullptr, 4096, false, true};
};

TEST_F(EmptyFontInfo, HasNoFontEntryOrError) {
  EXPECT_FALSE(info.isCreatedFont());
  EXPECT_EQ(info.getFont(), nullptr);
  EXPECT_EQ(info.getEntry(), 0);
  EXPECT_EQ(info.getError().getErrorCode(), 0);
  EXPECT_TRUE(info.getError().getErrorMessage().isEmpty());
}

TEST_F(EmptyFontInfo, DeletingItsFontDoesNothing) {
  FS_FontInfo empty;
  empty.deleteFont();
  empty.deleteFont();
  EXPECT_FALSE(empty.isCreatedFont());
}

TEST_F(EmptyFontInfo, IsOfNoKind) {
  EXPECT_FALSE(info.isType1Font());
  EXPECT_FALSE(info.isTrueTypeFont());
  EXPECT_FALSE(info.isType1OrNoCID());
  EXPECT_FALSE(info.isTrueTypeOrCID());
  EXPECT_FALSE(info.isExtraFont(nullptr, nullptr));
  EXPECT_EQ(info.getFontFileType(), 0);
  EXPECT_EQ(info.getFontFileType2(), 0);
  EXPECT_TRUE(info.getFontFileName().isEmpty());
  EXPECT_TRUE(info.getFontFileName2().isEmpty());
  EXPECT_EQ(info.getExtraBaseFont(), nullptr);
}

TEST_F(EmptyFontInfo, WritesAStyleOfZeros) {
  int weight = 1;
  bool italic = true;
  int stretch = 1;
  info.getFontStyle(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 0);
  EXPECT_FALSE(italic);
  EXPECT_EQ(stretch, 0);
  weight = stretch = 1;
  italic = true;
  info.getFontStyle2(&weight, &italic, &stretch);
  EXPECT_EQ(weight, 0);
  EXPECT_FALSE(italic);
  EXPECT_EQ(stretch, 0);
  info.getFontStyle(nullptr, nullptr, nullptr);
  info.getFontStyle2(nullptr, nullptr, nullptr);
}

TEST_F(EmptyFontInfo, AdjustsNothing) {
  EXPECT_EQ(info.getBaselineAdjust(), 0.0F);
  EXPECT_EQ(info.getFontSizeAdjust(), 1.0F);
}

TEST_F(EmptyFontInfo, HasNoNames) {
  EXPECT_TRUE(info.getFamilyName(kLang).isEmpty());
  EXPECT_TRUE(info.getSubFamilyName(kLang).isEmpty());
  EXPECT_TRUE(info.getFullFontName(kLang).isEmpty());
  EXPECT_TRUE(info.getPostScriptName(kLang).isEmpty());
  EXPECT_TRUE(info.getPreferredFamily(kLang).isEmpty());
  EXPECT_TRUE(info.getPreferredSubFamily(kLang).isEmpty());
  EXPECT_TRUE(info.getPostScriptCIDFindfontName(kLang).isEmpty());
  EXPECT_TRUE(info.getCopyright(kLang).isEmpty());
  EXPECT_TRUE(info.getManufacturer(kLang).isEmpty());
  EXPECT_TRUE(info.getLicenseDescription(kLang).isEmpty());
  EXPECT_TRUE(info.getFamilyNameEx().isEmpty());
  EXPECT_TRUE(FS_FontInfo::getFamilyName(nullptr, 0, kLang).isEmpty());
  EXPECT_TRUE(FS_FontInfo::getLicenseDescription(nullptr, 0, kLang).isEmpty());
}

TEST_F(EmptyFontInfo, HasNoMetrics) {
  FS_NewTextMetricEx metric;
  EXPECT_FALSE(info.getOutlineTextMetrics(metric, 10));
  EXPECT_EQ(info.getCodePageRangeBitFields().bits0, 0U);
  EXPECT_EQ(info.getCapHeight(), 0.0F);
  EXPECT_EQ(info.getXHeight(), 0.0F);
  EXPECT_EQ(info.getTypoAscender(), 0.0F);
  EXPECT_EQ(info.getTypoDescender(), 0.0F);
  PANOSE panose{};
  EXPECT_EQ(info.getPanose(panose), nullptr);
  EXPECT_EQ(info.getFamilyClass(), 0);
  EXPECT_EQ(info.getFamilySubclass(), 0);
  EXPECT_EQ(info.getUnitsPerEm(), 0);
  EXPECT_EQ(info.getDefaultCharWidth(10), 0.0F);
  EXPECT_EQ(info.getDefaultVertOriginY(10), 0.0F);
  EXPECT_EQ(info.getGlyphVertOriginY(1, 10), 0.0F);
  EXPECT_EQ(info.getGlyphWidth(1, 10, false), 0.0F);
  EXPECT_FALSE(info.hasPairKerningInfo(false));
  EXPECT_EQ(info.getPairKerningValue(1, 2, 10, false), 0.0F);
  EXPECT_FALSE(info.isSymbolicFont());
  EXPECT_FALSE(info.isFixedWidthFont());
  EXPECT_FALSE(info.isSerifLikeFont());
  EXPECT_FALSE(info.isScriptLikeFont());
}

TEST_F(EmptyFontInfo, TellsNoTextWidthAndLeavesTheIndex) {
  int missing = 7;
  EXPECT_EQ(info.getTextWidth(u"abc", 10, false, &missing), 0.0F);
  EXPECT_EQ(info.getTextWidth('a', 10, false, &missing), 0.0F);
  EXPECT_EQ(info.getTextWidth(-1, 10, false, &missing), 0.0F);
  EXPECT_EQ(info.getTextWidth(0x110000, 10, false, &missing), 0.0F);
  EXPECT_EQ(missing, 7);
}

TEST_F(EmptyFontInfo, HasNoGlyphs) {
  unsigned short ids[3] = {5, 5, 5};
  int count = 9;
  EXPECT_EQ(info.getGlyphID('a', false), 0xFFFF);
  EXPECT_FALSE(info.getGlyphIDs(u"abc", ids, count, false, nullptr));
  EXPECT_EQ(count, 9);
  EXPECT_EQ(info.getGlyphIDfromCID(1), 0xFFFF);
  EXPECT_EQ(info.getStringID(1), 0);
  EXPECT_FALSE(info.hasVerticalGlyph());
  EXPECT_FALSE(info.hasVerticalGlyph('a'));
  EXPECT_FALSE(info.hasVerticalMetrics());
  EXPECT_FALSE(info.hasVariationSelector());
  EXPECT_EQ(info.variationSequence('a', 0xFE00), 0xFFFF);
  EXPECT_EQ(info.getGlyphClassDef(1), -1);
  EXPECT_EQ(info.getEncodingScheme(), 0);
  FS_CIDSystemInfo system;
  EXPECT_FALSE(info.getCIDSystemInfo(system));
  EXPECT_EQ(info.getGSUBGPOSInfo(0, 0), nullptr);
}

TEST_F(EmptyFontInfo, DrawsNothing) {
  FS_GlyphDrawInfo draw;
  draw.valid = true;
  EXPECT_FALSE(info.isGlyphDrawInfoAvialable());
  EXPECT_FALSE(info.getGlyphDrawInfo(1, draw, false));
  EXPECT_FALSE(draw.valid);
}

TEST_F(EmptyFontInfo, ItsEmbedStatusIsTwoNotZero) {
  EXPECT_EQ(info.getEmbedStatus(), 2);
}

TEST_F(EmptyFontInfo, EmbedsNothing) {
  NoGlyphMap map;
  UnicodeString name;
  FS_CIDSystemInfo system;
  EXPECT_EQ(info.getFontEmbeddingLicence(), 0);
  EXPECT_EQ(info.getEmbedableCharCount(), 0U);
  EXPECT_FALSE(info.canEmbedFont());
  EXPECT_FALSE(info.getEmbedFont(gids, out, nullptr));
  EXPECT_FALSE(info.getEmbedFont(gids, out));
  EXPECT_FALSE(info.getSVG2EmbedFont(gids, out));
  EXPECT_FALSE(info.getEmbedFontWithCmap(gids, out));
  EXPECT_FALSE(info.getEmbedFontStream(out));
  EXPECT_FALSE(info.getPSEmbedFont(gids, out, map));
  EXPECT_FALSE(info.makeWebFont(gids, out));
  EXPECT_FALSE(info.makeSubsetFont(gids, out));
  EXPECT_FALSE(info.makePostScriptCIDFontType0(gids, out, name, system));
  EXPECT_EQ(out.length(), 0U);
}

TEST_F(EmptyFontInfo, HasNoType1Codes) {
  unsigned char code = 7;
  std::string name = "kept";
  int lengths[3] = {1, 2, 3};
  EXPECT_EQ(info.getType1CharCode('a'), 0);
  EXPECT_EQ(info.getType1GlyphIDCode(1), 0);
  EXPECT_EQ(info.getType1CMapArray(0), nullptr);
  EXPECT_FALSE(info.getType1CMapPair(0, 0, code, name));
  EXPECT_FALSE(info.getType1GlyphName(0, 65, name));
  EXPECT_FALSE(info.getType1EmbedFont(gids, out));
  EXPECT_FALSE(info.getType1EmbedFont(0, "a", 1, out, lengths[0], lengths[1], lengths[2]));
  EXPECT_FALSE(info.getType1FontStream(out, lengths[0], lengths[1], lengths[2]));
  EXPECT_EQ(code, 7);
  EXPECT_EQ(name, "kept");
  EXPECT_EQ(lengths[0], 1);
}

}  // namespace
}  // namespace QXFontService_NS
