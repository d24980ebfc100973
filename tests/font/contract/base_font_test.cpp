#include "font/contract/base_font.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "qxcommon/mem_stream.h"
#include "qxcommon/ptr.h"
#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/new_text_metric_ex.h"
#include "qxfontservice/tt_glyph_map.h"

#include "font/contract/font_folder.h"
#include "font/contract/font_key_sink.h"
#include "font/contract/plain_font.h"

namespace QXFontService_NS {
namespace {

using qxtest::PlainFont;
constexpr QXLang::LanguageID kLang = QXLang::LANGID_DEFAULT;

class StrictSink final : public FS_FontKeySink {
 public:
  void addFileName(const QXUri&, const FS_FontRef&, const FS_FontKey&) override { ++calls; }
  void addFamilyNames(const std::set<UnicodeString>&, const FS_FontRef&,
                      const FS_FontKey&) override {
    ++calls;
  }
  int calls = 0;
};

class NoGlyphMap final : public FS_TTGlyphMap {
 public:
  QXMemStream* getGlyphStream(unsigned short) override { return nullptr; }
};

class BaseFont : public testing::Test {
 protected:
  QXPtr<PlainFont> owned{new PlainFont(QXUri(u"/fonts/a.ttf", QXCommonNS::URISTR_USER))};
  PlainFont& font = *owned;
  const GlyphIDs gids{1, 2};
  QXMemStream out{nullptr, 4096, false, true};
  std::istringstream source;
};

TEST_F(BaseFont, AnswersItsIdentity) {
  EXPECT_EQ(font.getClassID(), 0x523A46D6U);
  EXPECT_TRUE(font.getClassName() == u"FS_BaseFont");
  EXPECT_TRUE(font.isKindOf(0x523A46D6));
  EXPECT_TRUE(font.isKindOf(0xD18D040A));
  EXPECT_TRUE(font.isKindOf(0xDF537371));
  EXPECT_FALSE(font.isKindOf(0xD8D7409B));
  EXPECT_FALSE(font.isKindOf(0));
}

TEST_F(BaseFont, ClassIdsAreThoseOfTheTree) {
  EXPECT_EQ(ID_FS_BaseFont, 0x523A46D6U);
  EXPECT_EQ(ID_FS_TrueType, 0xD8D7409BU);
  EXPECT_EQ(ID_FS_OpenType, 0x0E4266F1U);
  EXPECT_EQ(ID_FS_TrueTypeCollection, 0x0C261001U);
  EXPECT_EQ(ID_FS_DFont, 0x972A6D12U);
  EXPECT_EQ(ID_FS_ExtraFont, 0x2E8D3159U);
  EXPECT_EQ(ID_FS_WOFF, 0x5726A54CU);
  EXPECT_EQ(ID_FS_Type1, 0xA76A5E02U);
  EXPECT_EQ(ID_FS_Type1AFM, 0xE0D8C304U);
  EXPECT_EQ(ID_FS_Type1PFM, 0xEE4D2140U);
  EXPECT_EQ(ID_FS_Type1Printer, 0xCE603D8DU);
  EXPECT_EQ(ID_FS_Type1PFA, 0xB5FC60DEU);
  EXPECT_EQ(ID_FS_Type1PFB, 0x5D163695U);
}

TEST_F(BaseFont, TellsItsFileAndKind) {
  EXPECT_TRUE(font.getFontFileName2().getText() == u"/fonts/a.ttf");
  EXPECT_EQ(font.getTrueTypeInfo(0), nullptr);
  EXPECT_EQ(font.getFontFileType2(7), FS_FILETYPE_OPENTYPE);
  EXPECT_FALSE(font.isOpenType());
  int weight = 7;
  bool italic = true;
  EXPECT_FALSE(font.isExtraFont(&weight, &italic, 0));
  EXPECT_FALSE(font.isExtraFont(nullptr, nullptr, 0));
  EXPECT_EQ(weight, 7);
  EXPECT_TRUE(italic);
  EXPECT_EQ(font.getExtraBaseFont(), &font);
}

TEST_F(BaseFont, ReadsADocumentsFontLikeAnyOther) {
  EXPECT_TRUE(font.readExtraFont(nullptr, &source, u"Family", 700, 1));
  EXPECT_EQ(font.reads, 1);
  EXPECT_TRUE(font.loadFontTables(nullptr, 3, nullptr));
  EXPECT_EQ(font.getEntryCount(), 1);
}

TEST_F(BaseFont, EntersNoKeys) {
  StrictSink sink;
  font.addStyleKeys(sink, {&font, 0}, QXUri());
  font.addNameKeys(sink, {&font, 0});
  EXPECT_EQ(sink.calls, 0);
}

TEST_F(BaseFont, HasNoNames) {
  EXPECT_TRUE(font.getFamilyName(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getFamilyNameEx().isEmpty());
  EXPECT_TRUE(font.getSubFamilyName(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getFullFontName(kLang, 0).isEmpty());
  font.setPostScriptName(u"Name");
  EXPECT_TRUE(font.getPostScriptName(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getPreferredFamily(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getPreferredSubFamily(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getPostScriptCIDFindfontName(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getCopyright(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getManufacturer(kLang, 0).isEmpty());
  EXPECT_TRUE(font.getLicenseDescription(kLang, 0).isEmpty());
}

class NamedFont final : public PlainFont {
 public:
  UnicodeString getFamilyName(QXLang::LanguageID lang, int entry) const override {
    return lang == kLang && entry == 4 ? u"Four" : u"Other";
  }
  int getFontWeight(int entry) const override { return entry * 100; }
  bool isItalicFont(int entry) const override { return entry == 4; }
  int getFontStretch(int entry) const override { return entry; }
};

TEST_F(BaseFont, TheSecondStyleAndTheNameOfRecordFollowTheFirst) {
  const QXPtr<NamedFont> named(new NamedFont);
  EXPECT_TRUE(named->getFamilyNameEx(4) == u"Four");
  EXPECT_EQ(named->getFontWeight2(4), 400);
  EXPECT_TRUE(named->isItalicFont2(4));
  EXPECT_EQ(named->getFontStretch2(4), 4);
}

TEST_F(BaseFont, HasTheNeutralStyle) {
  EXPECT_EQ(font.getFontWeight(0), 0);
  EXPECT_FALSE(font.isItalicFont(0));
  EXPECT_EQ(font.getFontStretch(0), 5);
  EXPECT_EQ(font.getFontWeight2(0), 0);
  EXPECT_FALSE(font.isItalicFont2(0));
  EXPECT_EQ(font.getFontStretch2(0), 5);
}

TEST_F(BaseFont, FillsNoRecords) {
  FS_EnumLogFontEx logFont;
  FS_NewTextMetricEx metric;
  EXPECT_FALSE(font.getLogFont(logFont, 0));
  EXPECT_FALSE(font.getNewTextMetricEx(metric, 0));
  EXPECT_FALSE(font.getOutlineTextMetrics(metric, 10, 0));
  EXPECT_EQ(font.getCodePageRangeBitFields(0).bits0, 0U);
  EXPECT_EQ(font.getCodePageRangeBitFields(0).bits1, 0U);
  PANOSE panose{};
  panose.bWeight = 9;
  EXPECT_EQ(font.getPanose(panose, 0), nullptr);
  EXPECT_EQ(panose.bWeight, 9);
  FS_CIDSystemInfo info;
  info.Supplement = 3;
  EXPECT_FALSE(font.getCIDSystemInfo(info, 0));
  EXPECT_EQ(info.Supplement, 3);
}

TEST_F(BaseFont, HasNoMetrics) {
  int missing = 7;
  EXPECT_EQ(font.getTextWidth(u"abc", 10, false, &missing, 0), 0.0F);
  EXPECT_EQ(missing, 7);
  EXPECT_EQ(font.getXHeight(0), 0.0F);
  EXPECT_EQ(font.getCapHeight(0), 0.0F);
  EXPECT_EQ(font.getTypoAscender(0), 0.0F);
  EXPECT_EQ(font.getTypoDescender(0), 0.0F);
  EXPECT_EQ(font.getGlyphWidth(1, 10, false, 0), 0.0F);
  EXPECT_EQ(font.getUnitsPerEm(0), 0);
  EXPECT_EQ(font.getDefaultCharWidth(10, 0), 0.0F);
  EXPECT_FALSE(font.hasPairKerningInfo(false, 0));
  EXPECT_EQ(font.getPairKerningValue(1, 2, 10, false, 0), 0.0F);
  EXPECT_EQ(font.getFamilyClass(0), 0);
  EXPECT_EQ(font.getFamilySubclass(0), 0);
  EXPECT_EQ(font.getDefaultVertOriginY(10, 0), 0.0F);
  EXPECT_EQ(font.getGlyphVertOriginY(1, 10, 0), 0.0F);
}

TEST_F(BaseFont, HasNoGlyphs) {
  unsigned short ids[3] = {5, 5, 5};
  int count = 9;
  int missing = 9;
  EXPECT_EQ(font.getGlyphID('a', false, 0), 0xFFFF);
  EXPECT_FALSE(font.getGlyphIDs(u"abc", ids, count, false, &missing, 0));
  EXPECT_EQ(count, 9);
  EXPECT_EQ(font.getGlyphClassDef(1, 0), -1);
  EXPECT_EQ(font.getStringID(1, 0), 0);
  EXPECT_EQ(font.getCFFFont(0), nullptr);
  EXPECT_EQ(font.getGSUBGPOSInfo(0, 0, 0), nullptr);
  EXPECT_FALSE(font.hasVerticalGlyph(0));
  EXPECT_FALSE(font.hasVerticalMetrics(0));
  EXPECT_FALSE(font.hasVariationSelector(0));
  EXPECT_EQ(font.variationSequence('a', 0xFE00, 0), 0xFFFF);
  EXPECT_EQ(font.getEncodingScheme(0), FS_ENCODING_NONE);
}

TEST_F(BaseFont, HasNoTraits) {
  EXPECT_FALSE(font.isSymbolicFont(0));
  EXPECT_FALSE(font.isFixedWidthFont(0));
  EXPECT_FALSE(font.isSerifLikeFont(0));
  EXPECT_FALSE(font.isScriptLikeFont(0));
}

TEST_F(BaseFont, EmbedsNothing) {
  NoGlyphMap map;
  UnicodeString name;
  FS_CIDSystemInfo info;
  EXPECT_EQ(font.getEmbedableCharCount(0), 0U);
  EXPECT_FALSE(font.canEmbedFont(0));
  EXPECT_FALSE(font.getEmbedFont(gids, out, nullptr, 0, &source));
  EXPECT_FALSE(font.getEmbedFont(gids, out, 0, &source));
  EXPECT_FALSE(font.getSVG2EmbedFont(gids, out, 0, &source));
  EXPECT_FALSE(font.getEmbedFontWithCmap(gids, out, 0, &source));
  EXPECT_FALSE(font.getEmbedFontStream(out, 0, &source));
  EXPECT_FALSE(font.getPSEmbedFont(gids, out, map, 0, &source));
  EXPECT_FALSE(font.makeWebFont(gids, out, 0, &source));
  EXPECT_FALSE(font.makeSubsetFont(gids, out, 0, &source));
  EXPECT_FALSE(font.makePostScriptCIDFontType0(gids, out, name, info, 0, &source));
  EXPECT_EQ(out.length(), 0U);
  EXPECT_EQ(font.getMemStream(), nullptr);
}

TEST_F(BaseFont, ItsEmbedStatusIsOneThoughNothingIsAllowed) {
  EXPECT_FALSE(font.isEmbeddingAllowed(0));
  EXPECT_EQ(font.getEmbedStatus(0), 1);
  EXPECT_EQ(font.getFontEmbeddingLicence(0), 0);
}

TEST_F(BaseFont, HasNoType1Codes) {
  unsigned char code = 7;
  std::string name = "kept";
  int lengths[3] = {1, 2, 3};
  EXPECT_EQ(font.getType1CharCode('a', 0), 0);
  EXPECT_EQ(font.getType1GlyphIDCode(1, 0), 0);
  EXPECT_EQ(font.getType1CMapArray(0, 0), nullptr);
  EXPECT_FALSE(font.getType1CMapPair(0, 0, code, name, 0));
  EXPECT_FALSE(font.getType1GlyphName(0, 65, name, 0));
  EXPECT_FALSE(font.getType1EmbedFont(gids, out, 0, &source));
  EXPECT_FALSE(font.getType1EmbedFont(0, "a", 1, out, lengths[0], lengths[1], lengths[2], 0));
  EXPECT_FALSE(font.getType1FontStream(out, lengths[0], lengths[1], lengths[2], 0));
  EXPECT_EQ(code, 7);
  EXPECT_EQ(name, "kept");
  EXPECT_EQ(lengths[2], 3);
}

TEST_F(BaseFont, KeepsNoEudcLink) {
  font.setEudcFlag();
  font.setEudcFont({&font, 1}, 0);
  EXPECT_EQ(font.getEudcFont(0).font, nullptr);
  EXPECT_EQ(font.getEudcFont(0).entry, 0);
  EXPECT_EQ(font.getEudcGlyphID(0xE000, 0), 0xFFFF);
}

TEST_F(BaseFont, FindsItsOptionsInTheFolderByItsNameInAnyCase) {
  FS_FontFolder folder(u"/fonts", 0, false);
  folder.fileOptions[u"a.ttf"].baselineAdjust = 0.5F;
  const QXPtr<PlainFont> found(
      new PlainFont(QXUri(u"/fonts/A.TTF", QXCommonNS::URISTR_USER), &folder));
  ASSERT_NE(found->fontEntry(), nullptr);
  EXPECT_EQ(found->fontEntry()->baselineAdjust, 0.5F);
  EXPECT_EQ(found->folder(), &folder);
  const QXPtr<PlainFont> other(
      new PlainFont(QXUri(u"/fonts/b.ttf", QXCommonNS::URISTR_USER), &folder));
  EXPECT_EQ(other->fontEntry(), nullptr);
  EXPECT_EQ(font.fontEntry(), nullptr);
  EXPECT_EQ(font.folder(), nullptr);
}

TEST_F(BaseFont, TellsTheFlagsOfItsOriginAlone) {
  EXPECT_EQ(font.fontFlags(), 0U);
  EXPECT_EQ(font.getFreeTypeFace(0), nullptr);
  EXPECT_EQ(font.fontFlags(), 0U);
  font.addFontFlags(PlainFont::kSystemFont);
  EXPECT_EQ(font.fontFlags(), 8U);
  font.addFontFlags(PlainFont::kEudcFont);
  EXPECT_EQ(font.fontFlags(), 24U);
}

}  // namespace
}  // namespace QXFontService_NS
