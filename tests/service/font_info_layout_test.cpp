#include <gtest/gtest.h>

#include <type_traits>

#include "qxfontservice/font_service.h"

#include "layout/glyph_runs.h"
#include "layout/gpos/position_runs.h"
#include "layout/table/gsub_gpos_info.h"
#include "layout/table/script_list.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace QXFontService_NS {
namespace {

using LangSys = FS_LayoutTables::TTI_LangSys;

constexpr unsigned int kLiga = 0x6C696761;
constexpr unsigned int kKern = 0x6B65726E;

TEST(FontInfoLayout, OfNoInfoIsNeutral) {
  EXPECT_FALSE(FS_FontInfo::hasGSUBInfo(nullptr));
  EXPECT_FALSE(FS_FontInfo::hasGPOSInfo(nullptr));
  EXPECT_FALSE(FS_FontInfo::hasMorxInfo(nullptr));
  EXPECT_FALSE(FS_FontInfo::isGSUBDefaultLangSys(nullptr));
  EXPECT_FALSE(FS_FontInfo::isGPOSDefaultLangSys(nullptr));
  EXPECT_FALSE(FS_FontInfo::hasGSUBFeature(nullptr, kLiga));
  EXPECT_FALSE(FS_FontInfo::hasGPOSFeature(nullptr, kKern));
  EXPECT_EQ(FS_FontInfo::getGSUBFeatureTag(nullptr, 0), 0U);
  EXPECT_EQ(FS_FontInfo::getGPOSFeatureTag(nullptr, 0), 0U);
  FS_FontInfo::deleteGSUBGPOSInfo(nullptr);
}

TEST(FontInfoLayout, TagsStandInOrderOfLookupsAndEndInZero) {
  LangSys substitution;
  substitution.lookupsInOrder = {{kLiga, 3}, {kKern, 5}, {kLiga, 7}};
  LangSys positioning;
  positioning.lookupsInOrder = {{kKern, 0}};
  FS_GSUBGPOSInfo info;
  info.gsubLangSys = &substitution;
  info.gposLangSys = &positioning;
  const unsigned int tags[] = {kLiga, kKern, kLiga, 0, 0};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(FS_FontInfo::getGSUBFeatureTag(&info, i), tags[i]);
  EXPECT_EQ(FS_FontInfo::getGSUBFeatureTag(&info, -1), 0U);
  EXPECT_EQ(FS_FontInfo::getGPOSFeatureTag(&info, 0), kKern);
  EXPECT_EQ(FS_FontInfo::getGPOSFeatureTag(&info, 1), 0U);
}

TEST(FontInfoLayout, KnowsTheFeaturesOfTheLanguageSystem) {
  const unsigned short lookups[] = {3};
  LangSys system;
  system.featuresByTag = {{kKern, {}}, {kLiga, lookups}};
  FS_GSUBGPOSInfo info;
  EXPECT_FALSE(FS_FontInfo::hasGSUBFeature(&info, kLiga));
  info.gsubLangSys = &system;
  EXPECT_TRUE(FS_FontInfo::hasGSUBFeature(&info, kLiga));
  EXPECT_TRUE(FS_FontInfo::hasGSUBFeature(&info, kKern));  // a feature without lookups counts
  EXPECT_FALSE(FS_FontInfo::hasGSUBFeature(&info, kLiga + 1));
  EXPECT_FALSE(FS_FontInfo::hasGPOSFeature(&info, kLiga));
}

TEST(FontInfoLayout, TellsTheFlagsOfDefaultLanguageSystems) {
  FS_GSUBGPOSInfo info;
  EXPECT_FALSE(FS_FontInfo::isGSUBDefaultLangSys(&info));
  info.gsubDefault = true;
  EXPECT_TRUE(FS_FontInfo::isGSUBDefaultLangSys(&info));
  EXPECT_FALSE(FS_FontInfo::isGPOSDefaultLangSys(&info));
  info.gposDefault = true;
  EXPECT_TRUE(FS_FontInfo::isGPOSDefaultLangSys(&info));
  EXPECT_FALSE(FS_FontInfo::hasGSUBInfo(&info));
  EXPECT_FALSE(FS_FontInfo::hasGPOSInfo(&info));
}

TEST(FontInfoLayout, SubstitutionIsThatOfTheDrivers) {
  qxtest::LayoutTableBuilder table;
  const std::string one = qxtest::coverage({1});
  table.onlyLookup("test", 3, 0, {qxtest::alternateSubst(one, {{20, 30}})});
  table.onlyLookup("test", 4, 8, {qxtest::ligatureSubst(one, {{{70, {2}}}})});
  const qxtest::TestFont font(table.str(), qxtest::gdefTable(qxtest::testClasses()));
  const auto info = layout::makeGSUBGPOSInfo(font, qxtest::kTestTag, 0);
  const auto input = qxtest::glyphRun<GlyphIDArray2>(font, {1, 50, 2});
  GlyphIDArray output;
  GlyphIDArray matched;
  int position = 0;
  const auto step = [&](unsigned int tag, int alternate) {
    return FS_FontInfo::processGSUB(info.get(), tag, input, position, output, matched, alternate);
  };
  EXPECT_EQ(step(kLiga, 1), 0);
  EXPECT_EQ(step(qxtest::kTestTag, 2), 1);
  EXPECT_EQ(qxtest::idsOf(output), (qxtest::Ids{30}));
  EXPECT_EQ(position, 1);
  position = 0;
  EXPECT_EQ(step(qxtest::kTestTag, 0), 1);  // the alternate misses, and the ligature has its turn
  EXPECT_EQ(qxtest::idsOf(output), (qxtest::Ids{70}));
  EXPECT_EQ(qxtest::idsOf(matched), (qxtest::Ids{50}));
  EXPECT_EQ(position, 3);
  GlyphIDArray2 passed;
  EXPECT_FALSE(FS_FontInfo::processGSUB3(info.get(), 2, input, passed, 1));
  EXPECT_TRUE(passed.empty());
  EXPECT_TRUE(FS_FontInfo::processGSUB3(info.get(), 1, input, passed, 1));
  EXPECT_EQ(qxtest::idsOf(passed), (qxtest::Ids{70, 50}));
  EXPECT_EQ(passed.ligaInfo(0), 2);
  EXPECT_EQ(passed.skipInfo(1), 1);
}

TEST(FontInfoLayout, SubstitutionWithoutALanguageSystemDoesNothing) {
  FS_GSUBGPOSInfo info;
  const GlyphIDArray2 input(2);
  GlyphIDArray2 output(3);
  GlyphIDArray matched(4);
  int position = 1;
  EXPECT_EQ(FS_FontInfo::processGSUB(&info, kLiga, input, position, output, matched, 1), 0);
  EXPECT_FALSE(FS_FontInfo::processGSUB3(&info, 0, input, output, 1));
  EXPECT_EQ(position, 1);
  EXPECT_EQ(output.size(), 3);
  EXPECT_EQ(matched.size(), 4);
}

// Hosts link by these types.
TEST(FontInfoLayout, HasTheSignaturesThatHostsCall) {
  using Info = const FS_GSUBGPOSInfo*;
  using Glyphs = std::vector<GlyphIDPosition>&;
  using Font = FS_FontInfo;
  static_assert(std::is_same_v<decltype(&Font::getGSUBGPOSInfo),
                               FS_GSUBGPOSInfo* (Font::*)(unsigned, unsigned) const>);
  static_assert(std::is_same_v<decltype(&Font::deleteGSUBGPOSInfo), void (*)(FS_GSUBGPOSInfo*)>);
  using Asks = bool (*)(Info);
  static_assert(std::is_same_v<decltype(&Font::hasGSUBInfo), Asks>);
  static_assert(std::is_same_v<decltype(&Font::hasGPOSInfo), Asks>);
  static_assert(std::is_same_v<decltype(&Font::hasMorxInfo), Asks>);
  static_assert(std::is_same_v<decltype(&Font::isGSUBDefaultLangSys), Asks>);
  static_assert(std::is_same_v<decltype(&Font::isGPOSDefaultLangSys), Asks>);
  static_assert(std::is_same_v<decltype(&Font::getGSUBFeatureTag), unsigned (*)(Info, int)>);
  static_assert(std::is_same_v<decltype(&Font::getGPOSFeatureTag), unsigned (*)(Info, int)>);
  static_assert(std::is_same_v<decltype(&Font::hasGSUBFeature), bool (*)(Info, unsigned)>);
  static_assert(std::is_same_v<decltype(&Font::hasGPOSFeature), bool (*)(Info, unsigned)>);
  static_assert(std::is_same_v<decltype(&Font::processGSUB),
                               int (*)(Info, unsigned, const GlyphIDArray&, int&, GlyphIDArray&,
                                       GlyphIDArray&, int)>);
  static_assert(std::is_same_v<decltype(&Font::processGSUB3),
                               bool (*)(Info, int, const GlyphIDArray2&, GlyphIDArray2&, int)>);
  static_assert(
      std::is_same_v<decltype(&Font::processGPOS), bool (*)(Info, unsigned, Glyphs, int, bool)>);
  static_assert(std::is_same_v<decltype(&Font::processGPOS3), int (*)(Info, int, Glyphs, bool)>);
  static_assert(std::is_same_v<decltype(&Font::processMorx),
                               bool (*)(Info, const GlyphIDArray2&, GlyphIDArray2&)>);
}

TEST(FontInfoLayout, PositioningIsThatOfTheDrivers) {
  namespace gpos = qxtest::gpos;
  const gpos::GposFont font(1, 0, {gpos::shift({1}, 10)});
  const auto info = layout::makeGSUBGPOSInfo(font, gpos::kTestTag, 0);
  std::vector<GlyphIDPosition> glyphs{gpos::placed(2), gpos::placed(1)};
  EXPECT_TRUE(FS_FontInfo::processGPOS(info.get(), gpos::kTestTag, glyphs, 1, false));
  EXPECT_EQ(FS_FontInfo::processGPOS3(info.get(), 0, glyphs, false), 1);
  EXPECT_EQ(glyphs[1].getMoveX1(), 20);
  EXPECT_FALSE(FS_FontInfo::processGPOS(info.get(), kKern, glyphs, 1, false));
  EXPECT_EQ(FS_FontInfo::processGPOS3(info.get(), 1, glyphs, false), -1);
}

TEST(FontInfoLayout, MetamorphosisIsNeverApplied) {
  FS_GSUBGPOSInfo info;
  const GlyphIDArray2 input(2);
  GlyphIDArray2 output(3);
  EXPECT_FALSE(FS_FontInfo::hasMorxInfo(&info));
  EXPECT_FALSE(FS_FontInfo::processMorx(&info, input, output));
  EXPECT_EQ(output.size(), 3);
}

}  // namespace
}  // namespace QXFontService_NS
