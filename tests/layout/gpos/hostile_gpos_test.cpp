#include <gtest/gtest.h>

#include <random>

#include "layout/gpos/position_runs.h"
#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"
#include "support/offset_table.h"
#include "support/sample_layout.h"
#include "support/truncation.h"

namespace qxtest::gpos {
namespace {

namespace layout = QXFontService_NS::layout;

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

/// A chained rule on glyph 1 that runs these lookups.
std::string ruleOnOne(const std::vector<unsigned>& lookups) {
  LookupRecords records;
  for (const unsigned lookup : lookups) records.push_back({0, lookup});
  return chainContext3({}, {covered(1)}, {}, records);
}

/// The lookup 0 moves glyph 1 by 1; `rules` are contextual lookups from index 1 on, the first of
/// which is the feature's.
GposFont fontOfRules(const std::vector<std::string>& rules) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {shift({1}, 1)});
  for (const std::string& rule : rules) table.lookup(8, 0, {rule});
  table.script("test", {{table.feature("test", {1})}});
  return GposFont(table.str());
}

/// How far the feature moves a glyph 1.
int shiftBy(const std::vector<std::string>& rules) {
  Glyphs glyphs{placed(1)};
  const bool applied = stepAt(fontOfRules(rules), glyphs, 0);
  EXPECT_EQ(applied, glyphs[0].getMoveX1() != 0);
  return glyphs[0].getMoveX1();
}

TEST(HostileGpos, LookupThatRunsItselfAtItsPlaceDoesNothingThere) {
  EXPECT_EQ(shiftBy({ruleOnOne({1, 0})}), 1);
  EXPECT_EQ(shiftBy({ruleOnOne({1})}), 0);
}

TEST(HostileGpos, RingOfLookupsEnds) {
  EXPECT_EQ(shiftBy({ruleOnOne({2, 0}), ruleOnOne({3, 0}), ruleOnOne({1, 0})}), 3);
}

TEST(HostileGpos, LookupMayRunTwiceOneAfterTheOther) {
  EXPECT_EQ(shiftBy({ruleOnOne({2, 2, 0}), ruleOnOne({0})}), 3);
}

/// Lookup 1 moves on by a pair, and runs itself from there.
GposFont advancing() {
  LayoutTableBuilder table;
  table.lookup(2, 0, {pairPos1(covered(1), 1, 1, {{{1, {1}, {0}}}})});
  table.onlyLookup("test", 8, 0, {ruleOnOne({0, 1})});
  return GposFont(table.str());
}

TEST(HostileGpos, RuleThatAdvancesMayNestAsDeepAsTheRunIsLong) {
  constexpr std::size_t kLength = 3000;
  Glyphs glyphs(kLength, placed(1, kAbsolute));
  const unsigned before = layout::spentBudgets().nestingLevels;
  EXPECT_TRUE(stepAt(advancing(), glyphs, 0));
  EXPECT_EQ(layout::spentBudgets().nestingLevels, before);
  for (std::size_t i = 0; i + 1 < kLength; ++i) ASSERT_EQ(glyphs[i].getMoveX1(), 1) << i;
}

/// `levels` contextual lookups, each running the next one at the same glyph; the last moves it.
int shiftThroughLevels(unsigned levels) {
  std::vector<std::string> rules;
  for (unsigned i = 1; i < levels; ++i) rules.push_back(ruleOnOne({i + 1}));
  rules.push_back(ruleOnOne({0}));
  return shiftBy(rules);
}

TEST(HostileGpos, NestingIsBoundedWhereTheRunIsShort) {
  const unsigned before = layout::spentBudgets().nestingLevels;
  EXPECT_EQ(shiftThroughLevels(1024), 1);
  EXPECT_EQ(layout::spentBudgets().nestingLevels, before);
  EXPECT_EQ(shiftThroughLevels(1025), 0);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestingLevels, before + 1);
  }
}

// Each run moves the glyph again, so none may be left out; but there is an end.
TEST(HostileGpos, DoublingTreeOfLookupsEndsAtItsBudget) {
  const auto tree = [](unsigned levels) {
    std::vector<std::string> rules;
    for (unsigned i = 1; i < levels; ++i) rules.push_back(ruleOnOne({i + 1, i + 1}));
    rules.push_back(ruleOnOne({0}));
    return shiftBy(rules);
  };
  EXPECT_EQ(tree(13), 1 << 12);
  const unsigned before = layout::spentBudgets().nestedRuns;
  const int shifted = tree(40);
  EXPECT_GT(shifted, 10'000);
  EXPECT_LT(shifted, 65'536);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestedRuns, before + 1);
  }
}

TEST(HostileGpos, RingsThatBranchEndAtTheirBudget) {
  std::vector<unsigned> all;
  for (unsigned i = 1; i <= 12; ++i) all.push_back(i);
  const unsigned before = layout::spentBudgets().nestedRuns;
  EXPECT_EQ(shiftBy(std::vector<std::string>(12, ruleOnOne(all))), 0);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().nestedRuns, before + 1);
  }
}

// A lookup may hold subtables of several types. The place that counts is where it was begun, not
// where its contextual subtable runs.
TEST(HostileGpos, LookupThatMovesOnBeforeItRunsItselfIsNoRing) {
  const std::string moveOn =
      pairPos2(covered(1), 0, 0x10, classDef(1, {0}), classDef(1, {0}), {{{{}, {9}}}});
  LayoutTableBuilder table;
  table.onlyLookup("test", 9, 0,
                   {extensionSubTable(2, moveOn), extensionSubTable(8, ruleOnOne({0, 1}))});
  table.lookup(1, 0, {shift({1}, 1)});
  Glyphs glyphs(4, placed(1, kAbsolute));
  int position = 0;
  EXPECT_TRUE(applyAt(GposFont(table.str()), glyphs, position));
  EXPECT_EQ(position, 3);
  // The innermost level moves the last glyph, and each level above moves it once more.
  EXPECT_EQ(glyphs[3].getMoveX1(), 4);
}

TEST(HostileGpos, ComparisonsOfACallAreCounted) {
  const GposFont font(2, kIgnoreMarks, {pairPos1(covered(1), 1, 0, {{{2, {10}, {}}}})});
  const layout::TTI_Lookup& lookup = font.gpos->lookupList.lookups[0];
  const unsigned before = layout::spentBudgets().comparisons;
  for (const auto& [budget, applied] : {std::pair(1'000, true), std::pair(100, false)}) {
    Glyphs glyphs(302, placed(50));
    glyphs.front() = placed(1, kAbsolute);
    glyphs.back() = placed(2);
    layout::PositionRun run(glyphs, layout::WorkMeter(budget, 0, 1));
    layout::LookupRun lookups(font, font.gpos->lookupList, run, false);
    int position = 0;
    EXPECT_EQ(lookups.applyGPOSLookup(lookup, position), applied);
    EXPECT_EQ(glyphs[0].getMoveX1(), applied ? 10 : 0);
    // Once spent, nothing is tried any more.
    position = 300;
    glyphs[300] = placed(1);
    EXPECT_EQ(lookups.applyGPOSLookup(lookup, position), applied);
  }
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().comparisons, before + 1);
  }
}

// Marks share their search: a long row costs no more a mark than a short one, and is not cut off.
TEST(HostileGpos, AnyNumberOfMarksFindTheirBase) {
  constexpr std::size_t kMarks = 60'000;
  const std::string mark =
      markPos(covered(50), covered(1), 1, {{0, anchorTable(0, 0)}}, {{anchorTable(100, 0)}});
  const std::string ligature =
      markLigPos(covered(50), covered(1), 1, {{0, anchorTable(0, 0)}}, {{{anchorTable(100, 0)}}});
  for (const auto& [type, subTable] : {std::pair(4U, mark), std::pair(5U, ligature)}) {
    const GposFont font(type, kIgnoreMarks, {subTable});
    Glyphs glyphs(kMarks + 1, placed(50));
    glyphs[0] = placed(1, kAbsolute);
    const unsigned before = layout::spentBudgets().comparisons;
    EXPECT_EQ(passOver(font, 0, glyphs, false), 1);
    for (std::size_t i = 1; i <= kMarks; ++i) ASSERT_EQ(glyphs[i].getMoveX1(), -400) << i;
    EXPECT_EQ(layout::spentBudgets().comparisons, before);
  }
}

// Objects.

TEST(HostileGpos, OverlappingPairSetsStayWithinTheBudget) {
  // 20,000 sets, each of which begins two bytes further and claims all that follows.
  constexpr unsigned kSets = 20'000;
  OffsetTable subTable;
  subTable.u16(1).offset("").u16(0x0F).u16(0x0F).u16(kSets);
  for (unsigned i = 0; i < kSets; ++i) subTable.u16(10 + 2 * (kSets + i));
  for (unsigned i = 0; i < kSets; ++i) subTable.u16(0x7FFF);
  OffsetTable whole;
  whole.u32(0x00010000).u16(0).u16(0).u16(10).u16(1).u16(4).u16(2).u16(0).u16(1).u16(8);
  const unsigned before = layout::spentBudgets().graph;
  const GposFont font(whole.str() + subTable.str());
  for (const layout::SubTablePtr& read : font.gpos->lookupList.lookups.at(0).subTables)
    EXPECT_EQ(read, nullptr);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().graph, before + 1);
  }
}

TEST(HostileGpos, OverlappingLigaturesStayWithinTheBudget) {
  constexpr unsigned kLigatures = 20'000;
  OffsetTable subTable;
  subTable.u16(1).u16(0).u16(0).u16(1).u16(0).u16(12).u16(kLigatures);
  for (unsigned i = 0; i < kLigatures; ++i) subTable.u16(2 + 2 * kLigatures);
  subTable.u16(0x7FFF);
  for (unsigned i = 0; i < 0x2000; ++i) subTable.u16(1);
  OffsetTable whole;
  whole.u32(0x00010000).u16(0).u16(0).u16(10).u16(1).u16(4).u16(5).u16(0).u16(1).u16(8);
  const unsigned before = layout::spentBudgets().graph;
  const GposFont font(whole.str() + subTable.str());
  for (const layout::SubTablePtr& read : font.gpos->lookupList.lookups.at(0).subTables)
    EXPECT_EQ(read, nullptr);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().graph, before + 1);
  }
}

TEST(HostileGpos, ClassPairsWithoutFieldsKeepNoRecords) {
  std::string bytes =
      pairPos2(covered(1), 0, 0x10, classDef(1, {0}), classDef(1, {0}), {{{{}, {9}}}});
  for (std::size_t i = 12; i < 16; ++i) bytes[i] = '\xFF';  // 65,535 classes by 65,535
  const GposFont font(2, 0, {bytes});
  Glyphs glyphs{placed(1, kAbsolute), placed(1)};
  int position = 0;
  EXPECT_FALSE(applyAt(font, glyphs, position));
  EXPECT_EQ(position, 1);
}

// Damage.

Glyphs text(int flags) {
  Glyphs glyphs;
  for (const int id : {1, 2, 3, 50, 51, 70, 50, 1, 50, 2, 3, 1, 2})
    glyphs.push_back(placed(id, flags));
  return glyphs;
}

/// Runs all lookups over texts with and without flags. Gives how many applied.
int runAll(const std::string& bytes) {
  const GposFont font(bytes);
  const auto info = layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  int applied = 0;
  for (const int flags : {0, kAbsolute | kByComponent}) {
    Glyphs glyphs = text(flags);
    const int size = static_cast<int>(glyphs.size());
    for (int index = 0; layout::getGPOSFeatureTag(info.get(), index) != 0 && index < 40; ++index) {
      const int first = passOver(font, index, glyphs, flags != 0);
      EXPECT_LT(first, size);
      if (first >= 0) ++applied;
    }
    for (int place = 0; place < size; ++place) stepAt(font, glyphs, place, flags != 0);
  }
  return applied;
}

TEST(HostileGpos, AllTypesMoveTheText) {
  EXPECT_EQ(runAll(samplePositions()), 2 * 14);
}

TEST(HostileGpos, SurvivesDamage) {
  forEachDamage(samplePositions(), runAll);
}

TEST(HostileGpos, SurvivesRandomDamage) {
  std::mt19937 random(5);
  const std::string sound = samplePositions();
  for (int round = 0; round < 3000; ++round) {
    std::string bytes = sound;
    for (unsigned i = 0; i <= random() % 8; ++i)
      bytes[random() % bytes.size()] = static_cast<char>(random() % (round % 2 == 0 ? 256 : 8));
    runAll(bytes);
  }
}

}  // namespace
}  // namespace qxtest::gpos
