#include "font/true_type.h"

#include <algorithm>

#include "font/contract/font_key_sink.h"
#include "font/make_sfnt_font.h"
#include "font/sfnt_fixture.h"
#include "layout/driver/layout_info.h"
#include "support/class_def_builder.h"
#include "support/cmap_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/kern_builder.h"
#include "support/layout_table_builder.h"
#include "support/name_builder.h"
#include "support/table_builders.h"

namespace QXFontService_NS {
namespace {

using qxtest::CmapBuilder;
using qxtest::KernBuilder;
using qxtest::NameBuilder;
using qxtest::Os2Builder;
using qxtest::sampleFont;
using qxtest::SfntBuilder;

constexpr auto kDefault = QXLang::LANGID_DEFAULT;
constexpr auto kEnglish = static_cast<QXLang::LanguageID>(0x409);
constexpr auto kJapanese = static_cast<QXLang::LanguageID>(0x411);

class TrueType : public qxtest::SfntFixture {};

TEST_F(TrueType, IsOfItsClassAndAncestors) {
  const auto font = read(sampleFont());
  EXPECT_EQ(font->getClassID(), 0xD8D7409Bu);
  EXPECT_EQ(font->getClassName(), UnicodeString("FS_TrueType"));
  for (const unsigned id : {0xD8D7409Bu, 0x523A46D6u, 0xD18D040Au, 0xDF537371u})
    EXPECT_TRUE(font->isKindOf(id)) << id;
  EXPECT_FALSE(font->isKindOf(ID_FS_OpenType));
}

TEST_F(TrueType, TellsItsKind) {
  const auto font = read(sampleFont());
  EXPECT_EQ(font->getFontFileType(0), FS_FILETYPE_TRUETYPE);
  EXPECT_EQ(font->getFontFileType2(0), FS_FILETYPE_TRUETYPE);
  EXPECT_FALSE(font->isType1Font());
  EXPECT_TRUE(font->isTrueTypeFont());
  EXPECT_FALSE(font->isType1OrNoCID(0));
  EXPECT_TRUE(font->isTrueTypeOrCID(0));
  EXPECT_FALSE(font->isOpenType());
  EXPECT_EQ(font->getEntryCount(), 1);
  EXPECT_FALSE(font->isExtraFont(nullptr, nullptr, 0));
  EXPECT_EQ(font->getEncodingScheme(0), FS_ENCODING_NONE);
  EXPECT_EQ(font->getStringID(5, 0), 0);
  EXPECT_FALSE(font->loadGlyph(0, 0));
  EXPECT_EQ(font->getDefaultVertOriginY(10, 0), 0.0F);
  EXPECT_EQ(font->getGlyphVertOriginY(1, 10, 0), 0.0F);
}

TEST_F(TrueType, TheEntryIsNotLookedAt) {
  const auto font = load(sampleFont());
  for (const int entry : {-1, 0, 7}) {
    EXPECT_NE(font->getTrueTypeInfo(entry), nullptr);
    EXPECT_EQ(font->getGlyphID('A', false, entry), 2);
    EXPECT_EQ(font->getFontStretch(entry), 5);
  }
}

TEST_F(TrueType, FailedReadsReportTheirTextWithThePath) {
  EXPECT_FALSE(read(sampleFont().without("head")));
  EXPECT_EQ(error.getErrorCode(), 1928);
  EXPECT_EQ(message(), "Font file error: 'head' table not found\n/fonts/a.ttf");
  EXPECT_FALSE(read(sampleFont().build().substr(0, 11)));
  EXPECT_EQ(error.getErrorCode(), 1921);
  EXPECT_EQ(message(), "Font read error: Offset table read error\n/fonts/a.ttf");
  EXPECT_FALSE(read(std::string(12, '\0')));
  EXPECT_EQ(message(), "Font file error: OffsetTable.numTables = 0\n/fonts/a.ttf");
}

TEST_F(TrueType, FontsThatAreNoneOfOursAreRefusedInSilence) {
  EXPECT_FALSE(read(sampleFont().version(SfntBuilder::kOpenType)));
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_FALSE(read(sampleFont().version(SfntBuilder::kApple).without("hmtx")));
  EXPECT_EQ(error.getErrorCode(), 0);
}

TEST_F(TrueType, EachNameOperationAsksItsSlot) {
  NameBuilder names;
  for (unsigned id : {1u, 2u, 3u, 4u, 6u, 16u, 17u, 20u, 0u, 8u, 13u}) {
    const char16_t text[] = {u'n', static_cast<char16_t>(u'a' + id)};
    names.windows(id, {text, 2});
  }
  SfntBuilder builder = sampleFont();
  const auto font = read(builder.table("name", names.build()));
  EXPECT_EQ(font->getFamilyName(kEnglish, 0), UnicodeString("nb"));
  EXPECT_EQ(font->getFamilyNameEx(0), UnicodeString("nb"));
  EXPECT_EQ(font->getSubFamilyName(kEnglish, 0), UnicodeString("nc"));
  EXPECT_EQ(font->getFullFontName(kEnglish, 0), UnicodeString("ne"));
  EXPECT_EQ(font->getPostScriptName(kEnglish, 0), UnicodeString("ng"));
  EXPECT_EQ(font->getPreferredFamily(kEnglish, 0), UnicodeString("nq"));
  EXPECT_EQ(font->getPreferredSubFamily(kEnglish, 0), UnicodeString("nr"));
  EXPECT_EQ(font->getPostScriptCIDFindfontName(kEnglish, 0), UnicodeString("nu"));
  EXPECT_EQ(font->getCopyright(kEnglish, 0), UnicodeString("na"));
  EXPECT_EQ(font->getManufacturer(kEnglish, 0), UnicodeString("ni"));
  EXPECT_EQ(font->getLicenseDescription(kEnglish, 0), UnicodeString("nn"));
  EXPECT_TRUE(font->getFamilyName(kJapanese, 0).isEmpty());
  EXPECT_EQ(font->getFamilyName(kDefault, 0), UnicodeString("nb"));
}

TEST_F(TrueType, APostScriptNameCanBeGiven) {
  const auto font = read(sampleFont());
  font->setPostScriptName(u"Given");
  EXPECT_EQ(font->getPostScriptName(kDefault, 0), UnicodeString("Given"));
  EXPECT_EQ(font->getPostScriptName(kEnglish, 0), UnicodeString("QX Sample-Regular"));
}

TEST_F(TrueType, TheDefaultNamesAreThoseOfTheLocaleAtReading) {
  NameBuilder names;
  names.windows(1, u"English").windows(6, u"English-PS");
  names.windows(1, u"\u65E5\u672C", 0x411).windows(6, u"Japanese-PS", 0x411);
  SfntBuilder builder = sampleFont();
  builder.table("name", names.build());
  world.setLocaleName("ja_JP");
  const auto font = read(builder);
  EXPECT_EQ(font->getFamilyName(kDefault, 0), UnicodeString(u"\u65E5\u672C"));
  EXPECT_EQ(font->getPostScriptName(kDefault, 0), UnicodeString("English-PS"));
  world.setLocaleName("en_US_POSIX");
  EXPECT_EQ(font->getFamilyName(kDefault, 0), UnicodeString(u"\u65E5\u672C"));
  EXPECT_EQ(read(builder)->getFamilyName(kDefault, 0), UnicodeString("English"));
}

/// What a font enters, line by line.
class ListSink final : public FS_FontKeySink {
 public:
  void addFileName(const QXUri& uri, const FS_FontRef& of, const FS_FontKey& style) override {
    file = uri.getFileName();
    note(of, style);
  }
  void addFamilyNames(const std::set<UnicodeString>& all, const FS_FontRef& of,
                      const FS_FontKey& style) override {
    names = all;
    note(of, style);
  }
  UnicodeString file;
  std::set<UnicodeString> names;
  FS_FontRef ref;
  FS_FontKey key;
  int calls = 0;

 private:
  void note(const FS_FontRef& of, const FS_FontKey& style) {
    ref = of;
    key = style;
    ++calls;
  }
};

TEST_F(TrueType, EntersItsFileUnderItsStyle) {
  SfntBuilder builder = sampleFont();
  builder.table("OS/2", Os2Builder{.usWeightClass = 700, .usWidthClass = 3}.build());
  const auto font = read(builder);
  ListSink sink;
  font->addStyleKeys(sink, FS_FontRef{}, QXUri(u"/other/B.TTF", QXCommonNS::URISTR_USER));
  EXPECT_EQ(sink.calls, 1);
  EXPECT_EQ(sink.file, UnicodeString("B.TTF"));
  EXPECT_EQ(sink.ref.font, font.get());
  EXPECT_EQ(sink.ref.entry, 0);
  EXPECT_EQ(sink.key, makeFontKey(700, false, 3));
}

TEST_F(TrueType, EntersItsNamesInAllLanguagesAndItsAliases) {
  NameBuilder names;
  names.windows(1, u"Family").windows(2, u"Bold").windows(3, u"Unique").windows(4, u"Full");
  names.windows(6, u"PS").windows(16, u"Preferred").windows(17, u"Sub").windows(20, u"CID");
  names.windows(1, u"Famille", 0x40C).windows(4, u"", 0x40C);
  SfntBuilder builder = sampleFont();
  const auto font = read(builder.table("name", names.build()));
  font->fontAliases().insert(u"Alias");
  ListSink sink;
  font->addNameKeys(sink, FS_FontRef{});
  const std::set<UnicodeString> expected{u"Family",    u"Full",    u"PS",
                                         u"Preferred", u"Famille", u"Alias"};
  EXPECT_EQ(sink.names, expected);
  EXPECT_EQ(sink.calls, 1);
  services.preferredFamily = false;
  font->addNameKeys(sink, FS_FontRef{});
  EXPECT_EQ(sink.names.count(u"Preferred"), 0u);
  EXPECT_EQ(sink.names.size(), 5u);
}

TEST_F(TrueType, GlyphsWidthsAndKerningComeFromTheTables) {
  SfntBuilder builder = sampleFont();
  builder.table("kern", KernBuilder().format0({{2, 3, -50}}).build());
  const auto font = load(builder);
  unsigned short glyphs[3] = {};
  int count = 0;
  int missing = 0;
  EXPECT_TRUE(font->getGlyphIDs(u"ABx", glyphs, count, false, &missing, 0));
  EXPECT_EQ(count, 3);
  EXPECT_EQ(glyphs[1], 3);
  EXPECT_EQ(glyphs[2], 0xFFFF);
  EXPECT_EQ(missing, 2);
  EXPECT_EQ(font->getGlyphWidth(2, -500, false, 0), 300.0F);
  EXPECT_EQ(font->getGlyphWidth(2, 600, false, 0), 600.0F / 1200.0F * 600.0F);
  EXPECT_EQ(font->getTextWidth(u"A B", -1000, false, nullptr, 0), 600.0F + 250 + 600);
  EXPECT_EQ(font->getDefaultCharWidth(0, 0), 600.0F);
  EXPECT_TRUE(font->hasPairKerningInfo(false, 0));
  EXPECT_FALSE(font->hasPairKerningInfo(true, 0));
  EXPECT_EQ(font->getPairKerningValue(2, 3, 1000, false, 0), -50.0F);
  EXPECT_EQ(font->getPairKerningValue(2, 3, -500, false, 0), -25.0F);
}

TEST_F(TrueType, VariationSequencesComeFromTheCmap) {
  CmapBuilder cmap;
  cmap.add(0, 5, CmapBuilder::format14({{0xFE00, {}, {{0x41, 3}}}}));
  cmap.add(3, 1, CmapBuilder::format4({{0x41, 0x42, 2 - 0x41}}));
  const auto font = load(sampleFont().table("cmap", cmap.build()));
  EXPECT_TRUE(font->hasVariationSelector(0));
  EXPECT_EQ(font->variationSequence(0x41, 0xFE00, 0), 3);
  EXPECT_EQ(font->variationSequence(0x42, 0xFE00, 0), 0xFFFF);
  const auto plain = load(sampleFont());
  EXPECT_FALSE(plain->hasVariationSelector(0));
  EXPECT_EQ(plain->variationSequence(0x41, 0xFE00, 0), 0xFFFF);
}

std::string verticalGsub() {
  qxtest::LayoutTableBuilder table;
  table.feature("vert", {table.lookup(1, 0, {qxtest::singleSubst(qxtest::coverage({2}), 1)})});
  return table.str();
}

TEST_F(TrueType, VerticalFormsComeFromTheVertFeature) {
  const auto font = load(sampleFont().table("GSUB", verticalGsub()));
  EXPECT_TRUE(good);
  EXPECT_TRUE(font->hasVerticalGlyph(0));
  EXPECT_EQ(font->getGlyphID('A', true, 0), 3);
  EXPECT_EQ(font->getGlyphID('B', true, 0), 3);
  EXPECT_EQ(font->getGlyphID('x', true, 0), 0xFFFF);
  EXPECT_FALSE(load(sampleFont())->hasVerticalGlyph(0));
}

TEST_F(TrueType, LayoutInfoIsNeverNullAndTheCallers) {
  const auto plain = load(sampleFont());
  const std::unique_ptr<FS_GSUBGPOSInfo> empty(plain->getGSUBGPOSInfo(0x6C61746E, 0, 0));
  ASSERT_NE(empty, nullptr);
  EXPECT_FALSE(layout::hasGSUBInfo(empty.get()));
  qxtest::LayoutTableBuilder table;
  table.script("latn", {{table.feature("liga", {table.lookup(1, 0, {})})}});
  const auto font = load(sampleFont().table("GSUB", table.str()));
  const std::unique_ptr<FS_GSUBGPOSInfo> info(font->getGSUBGPOSInfo(0x6C61746E, 0, 0));
  EXPECT_TRUE(layout::hasGSUBInfo(info.get()));
  EXPECT_EQ(layout::getGSUBFeatureTag(info.get(), 0), 0x6C696761u);
}

TEST_F(TrueType, AnEudcFontStandsVerticallyWhenTold) {
  const auto font = load(sampleFont());
  font->setEudcFlag();
  EXPECT_TRUE(font->hasVerticalGlyph(0));
  EXPECT_EQ(font->getGlyphID('A', true, 0), 2);
}

TEST_F(TrueType, TheEudcLinkIsKeptAndCleared) {
  const auto font = read(sampleFont());
  EXPECT_EQ(font->getEudcFont(0).font, nullptr);
  font->setEudcFont(FS_FontRef{font.get(), 3}, 0);
  EXPECT_EQ(font->getEudcFont(0).font, font.get());
  EXPECT_EQ(font->getEudcFont(0).entry, 3);
  font->setEudcFont(FS_FontRef{}, 0);
  EXPECT_EQ(font->getEudcFont(0).font, nullptr);
  EXPECT_EQ(font->getEudcFont(0).entry, 0);
}

/// A font with a glyph for U+E000, 700 wide.
SfntBuilder eudcFont() {
  SfntBuilder font = sampleFont();
  font.table("cmap",
             CmapBuilder().add(3, 1, CmapBuilder::format4({{0xE000, 0xE000, 2 - 0xE000}})).build());
  return font;
}

TEST_F(TrueType, EudcCharactersComeFromTheLinkThenFromTheDefault) {
  services.eudcCode = 0xE000;
  const auto eudc = load(eudcFont());
  const auto font = load(sampleFont());
  unsigned short glyph = 7;
  int count = 0;
  int missing = 0;
  font->getGlyphIDs(u"\uE000", &glyph, count, false, &missing, 0);
  EXPECT_EQ(glyph, 0xFFFF);
  EXPECT_EQ(missing, 0);
  services.horizontalEudc = FS_FontRef{eudc.get(), 0};
  font->getGlyphIDs(u"\uE000", &glyph, count, false, &missing, 0);
  EXPECT_EQ(glyph, 0);
  EXPECT_EQ(missing, -1);
  EXPECT_EQ(font->getTextWidth(u"\uE000", -500, false, nullptr, 0), 300.0F);
  services.horizontalEudc = FS_FontRef{};
  font->setEudcFont(FS_FontRef{eudc.get(), 0}, 0);
  font->getGlyphIDs(u"\uE000", &glyph, count, false, &missing, 0);
  EXPECT_EQ(glyph, 0);
}

TEST_F(TrueType, FontsWithVerticalFormsTakeTheVerticalDefault) {
  services.eudcCode = 0xE000;
  const auto eudc = load(eudcFont());
  services.verticalEudc = FS_FontRef{eudc.get(), 0};
  unsigned short glyph = 7;
  int count = 0;
  load(sampleFont())->getGlyphIDs(u"\uE000", &glyph, count, false, nullptr, 0);
  EXPECT_EQ(glyph, 0xFFFF);
  load(sampleFont().table("GSUB", verticalGsub()))
      ->getGlyphIDs(u"\uE000", &glyph, count, false, nullptr, 0);
  EXPECT_EQ(glyph, 0);
}

TEST_F(TrueType, AnEmptyEudcCellIsNoGlyph) {
  SfntBuilder builder = eudcFont();
  EXPECT_EQ(load(builder)->getEudcGlyphID(0xE000, 0), 2);
  builder.table("hmtx", qxtest::MetricsBuilder{.metrics = {{500, 0}, {250, 0}, {0, 0}, {600, 0}},
                                               .bearings = {}}
                            .build());
  EXPECT_EQ(load(builder)->getEudcGlyphID(0xE000, 0), 0xFFFF);
}

TEST(MakeSfntFont, MakesTheClassOfTheType) {
  const QXUri uri(u"/a", QXCommonNS::URISTR_USER);
  const auto classOf = [&](FS_FontFileType type) {
    const QXPtr<FS_BaseFont> font(makeSfntFont(type, uri, nullptr));
    return font ? font->getClassID() : 0u;
  };
  EXPECT_EQ(classOf(FS_FILETYPE_TRUETYPE), ID_FS_TrueType);
  EXPECT_EQ(classOf(FS_FILETYPE_OPENTYPE), ID_FS_OpenType);
  EXPECT_EQ(classOf(FS_FILETYPE_OPENTYPE_CID), ID_FS_OpenType);
  EXPECT_EQ(classOf(FS_FILETYPE_TTC), ID_FS_TrueTypeCollection);
  EXPECT_EQ(classOf(FS_FILETYPE_DFONT), ID_FS_DFont);
  EXPECT_EQ(classOf(FS_FILETYPE_WOFF), ID_FS_WOFF);
  EXPECT_EQ(classOf(FS_FILETYPE_TYPE1_AFM), 0u);
  EXPECT_EQ(classOf(FS_FILETYPE_UNKNOWN), 0u);
}

}  // namespace
}  // namespace QXFontService_NS
