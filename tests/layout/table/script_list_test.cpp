#include "layout/table/script_list.h"

#include <gtest/gtest.h>

#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"
#include "layout/test_font.h"
#include "support/be_bytes.h"
#include "support/layout_table_builder.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::LayoutTableBuilder;
using Entries = std::vector<std::pair<unsigned, unsigned>>;
using Indices = std::vector<unsigned short>;

constexpr unsigned kLatn = 0x6C61746E;
constexpr unsigned kLiga = 0x6C696761;
constexpr unsigned kKern = 0x6B65726E;
constexpr unsigned kTrk = 0x54524B20;

std::vector<Indices> featuresOf(const TTI_LangSys& langSys, unsigned tag) {
  std::vector<Indices> found;
  for (const auto& entry : langSys.featuresOf(tag))
    found.emplace_back(entry.second.begin(), entry.second.end());
  return found;
}

TEST(ScriptList, FilesTheDefaultUnderZero) {
  LayoutTableBuilder table;
  const unsigned liga = table.feature("liga", {1});
  table.script("latn", {{liga}}, {{"TRK", {}}});
  table.script("grek", {}, {{"ELL", {liga}}});
  const qxtest::TestFont font(table.str());
  ASSERT_EQ(font.gsub->scripts.size(), 2u);
  const TTI_Script& latn = *font.gsub->scripts.at(kLatn);
  ASSERT_EQ(latn.langSys.size(), 2u);
  EXPECT_EQ(latn.langSys.at(0)->lookupsInOrder, (Entries{{kLiga, 1}}));
  EXPECT_TRUE(latn.langSys.at(kTrk)->lookupsInOrder.empty());
  EXPECT_FALSE(font.gsub->scripts.at(0x6772656B)->langSys.contains(0));
}

TEST(ScriptList, LookupsInOrderAscendAndKeepTheTablesOrderWhereEqual) {
  LayoutTableBuilder table;
  const unsigned liga = table.feature("liga", {7, 3});
  const unsigned kern = table.feature("kern", {5, 3});
  table.script("latn", {{kern, liga}});
  const qxtest::TestFont font(table.str());
  const TTI_LangSys& langSys = *font.gsub->scripts.at(kLatn)->langSys.at(0);
  EXPECT_EQ(langSys.lookupsInOrder, (Entries{{kKern, 3}, {kLiga, 3}, {kKern, 5}, {kLiga, 7}}));
}

TEST(ScriptList, FeaturesByTagKeepTheTablesOrderAndTheirOwn) {
  LayoutTableBuilder table;
  table.feature("liga", {7, 3});
  table.feature("kern", {});
  table.feature("liga", {1});
  table.script("latn", {{2, 1, 0}});
  const qxtest::TestFont font(table.str());
  const TTI_LangSys& langSys = *font.gsub->scripts.at(kLatn)->langSys.at(0);
  EXPECT_EQ(featuresOf(langSys, kLiga), (std::vector<Indices>{{1}, {7, 3}}));
  EXPECT_EQ(featuresOf(langSys, kKern), (std::vector<Indices>{{}}));
  EXPECT_TRUE(featuresOf(langSys, kTrk).empty());
}

TEST(ScriptList, RequiredFeatureIsStoredAndNotApplied) {
  const LayoutTableBuilder::Features none;
  LayoutTableBuilder table;
  table.feature("liga", {1});
  table.script("latn", none);
  std::string bytes = table.str();
  const std::size_t required = bytes.find(std::string("\0\0\xFF\xFF\0\0", 6)) + 2;
  bytes.replace(required, 2, std::string("\0\0", 2));
  const qxtest::TestFont font(bytes);
  const TTI_LangSys& langSys = *font.gsub->scripts.at(kLatn)->langSys.at(0);
  EXPECT_EQ(langSys.requiredFeature, 0);
  EXPECT_EQ(langSys.featureCount, 0);
  EXPECT_TRUE(langSys.lookupsInOrder.empty());
}

TEST(ScriptList, UnknownFeatureIsPassedOverAndUnknownLookupEntered) {
  LayoutTableBuilder table;
  const unsigned liga = table.feature("liga", {0xFFF0});
  table.script("latn", {{5, liga, 0xFFFF}});
  const qxtest::TestFont font(table.str());
  const TTI_LangSys& langSys = *font.gsub->scripts.at(kLatn)->langSys.at(0);
  EXPECT_EQ(langSys.featureCount, 3);
  EXPECT_EQ(langSys.lookupsInOrder, (Entries{{kLiga, 0xFFF0}}));
}

TEST(ScriptList, FirstRecordOfATagCounts) {
  LayoutTableBuilder table;
  table.feature("liga", {1});
  table.feature("kern", {2});
  table.script("latn", {{0}}, {{"TRK", {0}}, {"TRK", {1}}});
  table.script("latn", {{1}});
  const qxtest::TestFont font(table.str());
  const TTI_Script& latn = *font.gsub->scripts.at(kLatn);
  EXPECT_EQ(latn.langSys.at(0)->lookupsInOrder, (Entries{{kLiga, 1}}));
  EXPECT_EQ(latn.langSys.at(kTrk)->lookupsInOrder, (Entries{{kLiga, 1}}));
}

/// A table whose lone script has `systems` language systems of `features` times the feature 0, of
/// `lookups` lookups; all at one place, or each a word further.
std::string crowdedTable(unsigned systems, unsigned features, unsigned lookups, unsigned apart) {
  qxtest::BeBytes bytes;
  bytes.u32(0x00010000).label("scripts").u16(0).label("features").u16(0).u16(0);
  bytes.patchU16("scripts", static_cast<unsigned>(bytes.size()));
  bytes.u16(1).tag("latn").u16(8).u16(0).u16(systems);
  const unsigned first = 4 + 6 * systems;
  for (unsigned i = 0; i < systems; ++i) bytes.u32(i + 1).u16(first + i * apart);
  for (unsigned i = 0; i < 3 + systems * apart / 2; ++i) bytes.u16(features);
  bytes.zeros(2 * features);
  bytes.patchU16("features", static_cast<unsigned>(bytes.size()));
  bytes.u16(1).tag("liga").u16(8).u16(0).u16(lookups).zeros(2 * lookups);
  return bytes.str();
}

TEST(ScriptList, LanguageSystemsAtOnePlaceAreShared) {
  const qxtest::TestFont font(crowdedTable(1'000, 100, 100, 0));
  const TTI_Script& latn = *font.gsub->scripts.at(kLatn);
  ASSERT_EQ(latn.langSys.size(), 1'000u);
  EXPECT_EQ(latn.langSys.at(1), latn.langSys.at(1'000));
  EXPECT_EQ(latn.langSys.at(1)->lookupsInOrder.size(), 10'000u);
}

TEST(ScriptList, LanguageSystemEndsAtItsBudget) {
  const unsigned before = spentBudgets().langSys;
  const qxtest::TestFont font(crowdedTable(1, 8'000, 5'000, 0));
  const TTI_LangSys& langSys = *font.gsub->scripts.at(kLatn)->langSys.at(1);
  EXPECT_EQ(static_cast<std::int64_t>(langSys.lookupsInOrder.size() + langSys.featuresByTag.size()),
            kMostLangSysEntries);
  if (kCountsSpentBudgets) {
    EXPECT_EQ(spentBudgets().langSys, before + 1);
  }
}

TEST(ScriptList, AllLanguageSystemsEndAtTheirBudget) {
  const unsigned before = spentBudgets().langSys;
  const qxtest::TestFont font(crowdedTable(12, 1'000, 1'000, 2));
  std::int64_t entries = 0;
  for (const auto& [tag, langSys] : font.gsub->scripts.at(kLatn)->langSys)
    entries +=
        static_cast<std::int64_t>(langSys->lookupsInOrder.size() + langSys->featuresByTag.size());
  EXPECT_LE(entries, kMostLangSysEntriesOfTable);
  EXPECT_GT(entries, kMostLangSysEntriesOfTable - 100);  // indices that name no feature count too
  if (kCountsSpentBudgets) {
    EXPECT_GT(spentBudgets().langSys, before);
  }
}

}  // namespace
}  // namespace QXFontService_NS::layout
