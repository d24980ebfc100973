#include <gtest/gtest.h>

#include "qxfontservice/font_service.h"

#include "layout/gpos/position_runs.h"
#include "layout/table/gsub_gpos_info.h"
#include "layout/table/script_list.h"

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
