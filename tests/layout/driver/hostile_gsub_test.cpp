#include <gtest/gtest.h>

#include <random>

#include "layout/glyph_runs.h"
#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"
#include "support/offset_table.h"
#include "support/sample_layout.h"
#include "support/truncation.h"

namespace qxtest {
namespace {

namespace layout = QXFontService_NS::layout;

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

/// A chained rule on glyph 1 that runs these lookups, each at its place.
std::string ruleOnOne(const LookupRecords& records) {
  return chainContext3({}, {covered(1)}, {}, records);
}

/// The lookup 0 turns 1 into 7; `rules` are contextual lookups from index 1 on, the first of
/// which is the feature's.
TestFont fontOfRules(const std::vector<std::string>& rules) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {singleSubst(covered(1), 6)});
  for (const std::string& rule : rules) table.lookup(6, 0, {rule});
  table.script("test", {{table.feature("test", {1})}});
  return TestFont(table.str());
}

TEST(HostileGsub, LookupThatRunsItselfAtItsPlaceDoesNothingThere) {
  const TestFont font = fontOfRules({ruleOnOne({{0, 1}, {0, 0}})});
  EXPECT_EQ(stepAt(font, {1, 2}, 0).output, (Ids{7, 2}));
  EXPECT_EQ(passOver(font, 0, {1, 2}).glyphs, (Ids{7, 2}));
}

TEST(HostileGsub, RingOfLookupsEnds) {
  const TestFont font = fontOfRules(
      {ruleOnOne({{0, 2}, {0, 0}}), ruleOnOne({{0, 3}, {0, 0}}), ruleOnOne({{0, 1}, {0, 0}})});
  EXPECT_EQ(stepAt(font, {1, 2}, 0), (Step{1, 1, {7, 2}, {}}));
}

// A rule that runs itself at the next glyph is sound: the text ends it.
TEST(HostileGsub, RuleThatAdvancesMayNestAsDeepAsTheTextIsLong) {
  constexpr int kLength = 3000;
  const TestFont font = fontOfRules({ruleOnOne({{1, 1}, {0, 0}})});
  const unsigned before = layout::spentBudgets().nestingLevels;
  Ids text(kLength, 1);
  EXPECT_EQ(stepAt(font, text, 0).position, kLength);  // the innermost level reached the end
  EXPECT_EQ(layout::spentBudgets().nestingLevels, before);
}

TEST(HostileGsub, NestingIsBoundedWhereTheTextIsShort) {
  // 2,000 lookups, each running the next one at the same glyph; the last substitutes.
  std::vector<std::string> rules;
  for (unsigned i = 0; i < 2000; ++i) rules.push_back(ruleOnOne({{0, i + 2}}));
  rules.push_back(ruleOnOne({{0, 0}}));
  const unsigned before = layout::spentBudgets().nestingLevels;
  EXPECT_EQ(stepAt(fontOfRules(rules), {1, 2}, 0).result, 0);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestingLevels, before + 1);
  }
  rules.erase(rules.begin() + 1, rules.end());
  rules[0] = ruleOnOne({{0, 2}});
  for (unsigned i = 1; i < 1023; ++i) rules.push_back(ruleOnOne({{0, i + 2}}));
  rules.push_back(ruleOnOne({{0, 0}}));
  EXPECT_EQ(stepAt(fontOfRules(rules), {1, 2}, 0).output, (Ids{7, 2}));  // 1,024 levels
}

TEST(HostileGsub, DoublingTreeOfLookupsIsRunOnceALevel) {
  // 40 lookups, each running the next one twice.
  std::vector<std::string> rules;
  for (unsigned i = 0; i < 40; ++i) rules.push_back(ruleOnOne({{0, i + 2}, {0, i + 2}}));
  rules.push_back(ruleOnOne({{0, 0}}));
  const unsigned before = layout::spentBudgets().nestedRuns;
  EXPECT_EQ(stepAt(fontOfRules(rules), {1, 2}, 0), (Step{1, 1, {7, 2}, {}}));
  EXPECT_EQ(layout::spentBudgets().nestedRuns, before);
}

TEST(HostileGsub, RingsThatBranchEndAtTheirBudget) {
  // 12 lookups, each running all of them: what one does depends on those in progress.
  std::vector<std::string> rules;
  LookupRecords all;
  for (unsigned i = 1; i <= 12; ++i) all.push_back({0, i});
  for (unsigned i = 0; i < 12; ++i) rules.push_back(ruleOnOne(all));
  const unsigned before = layout::spentBudgets().nestedRuns;
  EXPECT_EQ(stepAt(fontOfRules(rules), {1, 2}, 0).result, 0);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestedRuns, before + 1);
  }
}

TEST(HostileGsub, NestedRunsOfAStepAreCounted) {
  // The rule runs another at `count` places, and that one runs `count` times a lookup that misses.
  const auto resultOf = [](unsigned count) {
    LookupRecords outer;
    for (unsigned i = 0; i < count; ++i) outer.push_back({i, 2});
    outer.push_back({0, 0});
    const std::string misses = chainContext3({}, {covered(9)}, {}, {});
    const TestFont font =
        fontOfRules({ruleOnOne(outer), ruleOnOne(LookupRecords(count, {0, 3})), misses});
    return stepAt(font, Ids(count, 1), 0).result;
  };
  const unsigned before = layout::spentBudgets().nestedRuns;
  EXPECT_EQ(resultOf(200), 1);
  EXPECT_EQ(layout::spentBudgets().nestedRuns, before);
  EXPECT_EQ(resultOf(300), 0);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestedRuns, before + 1);
  }
}

TEST(HostileGsub, GrowthForEverEndsAtItsBound) {
  // 1 -> 2 2 and 2 -> 1 1, under a chained rule that looks at its new glyphs again.
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(coverage({1, 2}), {{2, 2}, {1, 1}})});
  table.onlyLookup("test", 6, 0, {chainContext3({}, {coverage({1, 2})}, {}, {{0, 0}})});
  const unsigned before = layout::spentBudgets().growth;
  const Pass pass = passOver(TestFont(table.str()), 0, {1, 9});
  EXPECT_TRUE(pass.changed);
  EXPECT_GT(pass.glyphs.size(), 65'536u);
  EXPECT_LE(pass.glyphs.size(), 65'538u);
  EXPECT_EQ(pass.liga.size(), pass.glyphs.size());
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().growth, before + 1);
  }
}

TEST(HostileGsub, ExpansionOfEachGlyphEndsAtItsBound) {
  const TestFont font = [] {
    LayoutTableBuilder table;
    table.onlyLookup("test", 2, 0, {multipleSubst(covered(1), {std::vector<unsigned>(10'000, 2)})});
    return TestFont(table.str());
  }();
  const Pass pass = passOver(font, 0, Ids(100, 1));
  EXPECT_GT(pass.glyphs.size(), 65'536u);
  EXPECT_LT(pass.glyphs.size(), 80'000u);
}

TEST(HostileGsub, LigatureOfGlyphFFFFMovesOnAndMayLeaveTheText) {
  const std::string none = ligatureSubst(covered(1), {{{0xFFFF, {2}}}});
  LayoutTableBuilder table;
  table.onlyLookup("test", 4, 0, {none, ligatureSubst(coverage({1, 2}), {{{70, {}}}, {{71, {}}}})});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {1, 2}), (Pass{true, {1, 71}, {1, 1}, {0, 0}}));
}

TEST(HostileGsub, OverlappingSubTablesStayWithinTheBudget) {
  // A sound subtable, and 3,000 that begin at any of the words "1, 0, 20002": 20,000 sequences of
  // which every third has 20,002 glyphs.
  constexpr unsigned kSubTables = 3'000;
  constexpr unsigned kPattern = 6 + 2 * (kSubTables + 1);
  const std::string sound = multipleSubst(covered(1), {{2, 3}});
  OffsetTable lookup;
  lookup.u16(2).u16(0).u16(kSubTables + 1).u16(kPattern);
  for (unsigned i = 0; i < kSubTables; ++i)
    lookup.u16(kPattern + static_cast<unsigned>(sound.size()) + 6 * i);
  OffsetTable pattern;
  for (unsigned i = 0; i < 15'000; ++i) pattern.u16(1).u16(0).u16(20'002);
  OffsetTable whole;
  whole.u32(0x00010000).u16(0).u16(0).u16(10).u16(1).u16(4);
  const unsigned before = layout::spentBudgets().graph;
  const TestFont font(whole.str() + lookup.str() + sound + pattern.str());
  const auto& subTables = font.gsub->lookupList.lookups.at(0).subTables;
  ASSERT_FALSE(subTables.empty());
  EXPECT_NE(subTables[0], nullptr);
  for (std::size_t i = 1; i < subTables.size(); ++i) EXPECT_EQ(subTables[i], nullptr);
  EXPECT_EQ(font.gsub->lookupList.lookups[0].type, 2u);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().graph, before + 1);
  }
}

const Ids kText{3, 1, 50, 2, 3, 1, 2, 2, 3, 51, 1};

void runAll(const std::string& bytes) {
  const TestFont font(bytes, gdefTable(testClasses()));
  const auto info = layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  for (int index = 0; layout::getGSUBFeatureTag(info.get(), index) != 0 && index < 40; ++index) {
    const Pass pass = passOver(font, index, kText);
    EXPECT_EQ(pass.liga.size(), pass.glyphs.size());
  }
  for (int at = 0; at < static_cast<int>(kText.size()); ++at) {
    const Step step = stepAt(font, kText, at);
    EXPECT_GE(step.position, at);
    if (step.result > 0) {
      EXPECT_GE(static_cast<int>(step.output.size()), step.result);
    }
  }
}

TEST(HostileGsub, AllTypesChangeTheText) {
  const TestFont font(sampleSubstitutions(), gdefTable(testClasses()));
  unsigned changed = 0;
  for (int index = 0; index < 13; ++index)
    if (passOver(font, index, kText).changed) ++changed;
  EXPECT_EQ(changed, 12u);  // all but the plain context over glyphs
}

TEST(HostileGsub, SurvivesDamage) {
  forEachDamage(sampleSubstitutions(), runAll);
}

TEST(HostileGsub, SurvivesRandomDamage) {
  std::mt19937 random(3);
  const std::string sound = sampleSubstitutions();
  for (int round = 0; round < 1000; ++round) {
    std::string bytes = sound;
    for (unsigned i = 0; i <= random() % 8; ++i)
      bytes[random() % bytes.size()] = static_cast<char>(random() % (round % 2 == 0 ? 256 : 8));
    runAll(bytes);
  }
}

}  // namespace
}  // namespace qxtest
