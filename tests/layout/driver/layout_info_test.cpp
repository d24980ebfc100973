#include "layout/driver/layout_info.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::LayoutTableBuilder;

constexpr unsigned kLatn = 0x6C61746E;
constexpr unsigned kGrek = 0x6772656B;
constexpr unsigned kDflt = 0x44464C54;
constexpr unsigned kTrk = 0x54524B20;
constexpr unsigned kDeu = 0x44455520;
constexpr unsigned kLiga = 0x6C696761;
constexpr unsigned kKern = 0x6B65726E;

/// 'latn' with a default and 'TRK', 'grek' with 'TRK' alone, 'DFLT' with a default.
std::string scripts() {
  LayoutTableBuilder table;
  const unsigned liga = table.feature("liga", {3, 7});
  const unsigned kern = table.feature("kern", {5});
  table.script("latn", {{liga, kern}}, {{"TRK", {kern}}});
  table.script("grek", {}, {{"TRK", {liga}}});
  table.script("DFLT", {{liga}});
  return table.str();
}

struct InfoCase {
  const char* what;
  unsigned script, language;
  bool has, byDefault;
};

TEST(LayoutInfo, FindsScriptAndLanguage) {
  const InfoCase cases[] = {{"no language", kLatn, 0, true, true},
                            {"known language", kLatn, kTrk, true, false},
                            {"unknown language turns to the default", kLatn, kDeu, true, true},
                            {"no default to turn to", kGrek, kDeu, false, true},
                            {"no default asked for", kGrek, 0, false, true},
                            {"known language without a default", kGrek, kTrk, true, false},
                            {"no script, DFLT is not tried", 0x6379726C, 0, false, false},
                            {"DFLT by name", kDflt, 0, true, true}};
  const qxtest::TestFont font(scripts());
  for (const InfoCase& c : cases) {
    const auto info = makeGSUBGPOSInfo(font, c.script, c.language);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->scriptTag, c.script);
    EXPECT_EQ(info->font, &font);
    EXPECT_EQ(hasGSUBInfo(info.get()), c.has) << c.what;
    EXPECT_EQ(isGSUBDefaultLangSys(info.get()), c.byDefault) << c.what;
    EXPECT_FALSE(hasGPOSInfo(info.get())) << c.what;
    EXPECT_FALSE(isGPOSDefaultLangSys(info.get())) << c.what;
  }
}

TEST(LayoutInfo, ResolvesTheTwoTablesEachForItself) {
  qxtest::TestFont font;
  const std::string bytes = scripts();
  readGPOS(font, qxtest::viewOf(bytes));
  const auto info = makeGSUBGPOSInfo(font, kLatn, kTrk);
  EXPECT_FALSE(hasGSUBInfo(info.get()));
  EXPECT_TRUE(hasGPOSInfo(info.get()));
  EXPECT_FALSE(isGPOSDefaultLangSys(info.get()));
  EXPECT_EQ(getGSUBFeatureTag(info.get(), 0), 0u);
  EXPECT_EQ(getGPOSFeatureTag(info.get(), 0), kKern);
  EXPECT_FALSE(hasGSUBFeature(info.get(), kKern));
  EXPECT_TRUE(hasGPOSFeature(info.get(), kKern));
}

TEST(LayoutInfo, OfAFontWithoutLayoutIsEmpty) {
  const qxtest::TestFont font;
  const auto info = makeGSUBGPOSInfo(font, kLatn, 0);
  ASSERT_NE(info, nullptr);
  EXPECT_FALSE(hasGSUBInfo(info.get()) || hasGPOSInfo(info.get()));
  EXPECT_FALSE(isGSUBDefaultLangSys(info.get()));
}

TEST(LayoutInfo, TellsAFeatureForEachLookupInOrder) {
  const qxtest::TestFont font(scripts());
  const auto info = makeGSUBGPOSInfo(font, kLatn, 0);
  EXPECT_EQ(getGSUBFeatureTag(info.get(), 0), kLiga);  // lookup 3
  EXPECT_EQ(getGSUBFeatureTag(info.get(), 1), kKern);  // 5
  EXPECT_EQ(getGSUBFeatureTag(info.get(), 2), kLiga);  // 7
  EXPECT_EQ(getGSUBFeatureTag(info.get(), 3), 0u);
  EXPECT_EQ(getGSUBFeatureTag(info.get(), -1), 0u);
  EXPECT_TRUE(hasGSUBFeature(info.get(), kLiga));
  EXPECT_FALSE(hasGSUBFeature(info.get(), kTrk));
}

TEST(LayoutInfo, NullAnswersNothing) {
  EXPECT_FALSE(hasGSUBInfo(nullptr) || hasGPOSInfo(nullptr));
  EXPECT_FALSE(isGSUBDefaultLangSys(nullptr) || isGPOSDefaultLangSys(nullptr));
  EXPECT_EQ(getGSUBFeatureTag(nullptr, 0) + getGPOSFeatureTag(nullptr, 0), 0u);
  EXPECT_FALSE(hasGSUBFeature(nullptr, kLiga) || hasGPOSFeature(nullptr, kLiga));
}

TEST(LayoutInfo, VerticalFormIsTheFirstAnswerOfTheVertLookups) {
  LayoutTableBuilder table;
  using qxtest::coverage;
  const unsigned liga = table.lookup(4, 0, {qxtest::ligatureSubst(coverage({5}), {{{9, {}}}})});
  const unsigned one = table.lookup(1, 0, {"", qxtest::singleSubst(coverage({6}), 10)});
  const unsigned two = table.lookup(1, 0, {qxtest::singleSubst(coverage({5, 6}), 20)});
  table.feature("vrt2", {two});
  table.feature("vert", {99, liga, one, two});
  table.feature("vert", {two});
  const qxtest::TestFont font(table.str());
  EXPECT_EQ(verticalSubstitute(font, 5), 25);
  EXPECT_EQ(verticalSubstitute(font, 6), 16);
  EXPECT_EQ(verticalSubstitute(font, 7), 0xFFFF);
  EXPECT_EQ(verticalSubstitute(qxtest::TestFont(), 5), 0xFFFF);
}

}  // namespace
}  // namespace QXFontService_NS::layout
