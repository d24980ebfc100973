#include "layout/guard/work_meter.h"

#include <gtest/gtest.h>

#include "layout/glyph_runs.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace QXFontService_NS::layout {
namespace {

TEST(WorkMeter, GrantsNestedRunsToStepsAndPasses) {
  const auto runsOf = [](WorkMeter meter) {
    std::int64_t runs = 0;
    while (meter.runNested()) ++runs;
    return runs;
  };
  EXPECT_EQ(runsOf(WorkMeter::forStep(1'000)), 65'536);
  EXPECT_EQ(runsOf(WorkMeter::forPass(3)), 65'536);
  EXPECT_EQ(runsOf(WorkMeter::forPass(1'000)), 4'096'000);
}

TEST(WorkMeter, GrantsComparisonsByLength) {
  const std::int64_t granted = (std::int64_t{1} << 28) + 4'096 * 100;
  for (WorkMeter meter : {WorkMeter::forStep(100), WorkMeter::forPass(100)}) {
    EXPECT_TRUE(meter.compare(granted));
    EXPECT_TRUE(meter.compare(0));
    EXPECT_FALSE(meter.compare(1));
    EXPECT_FALSE(meter.compare(0));
  }
}

TEST(WorkMeter, GrantsLevelsByLength) {
  EXPECT_EQ(WorkMeter::forStep(5).nestingLevels(), 1'024u);
  EXPECT_EQ(WorkMeter::forPass(5'000).nestingLevels(), 5'000u);
}

TEST(WorkMeter, NotesOnceThatItIsSpent) {
  const unsigned comparisons = spentBudgets().comparisons;
  const unsigned runs = spentBudgets().nestedRuns;
  WorkMeter meter(3, 1, 1);
  EXPECT_TRUE(meter.compare(3) && meter.runNested());
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(meter.compare(1) || meter.runNested());
  if (kCountsSpentBudgets) {
    EXPECT_EQ(spentBudgets().comparisons, comparisons + 1);
    EXPECT_EQ(spentBudgets().nestedRuns, runs + 1);
  }
}

/// A subtable that matches at the start of 1 50 2 3, passing over the mark 50.
struct Matcher {
  const char* what;
  unsigned type;
  std::string subTable;
};

std::vector<Matcher> allMatchers() {
  using namespace qxtest;
  const std::string one = coverage({1});
  const std::string classes = classDef(1, {1, 2, 3});
  const LookupRecords records{{0, 0}};
  return {
      {"ligature", 4, ligatureSubst(one, {{{70, {2, 3}}}})},
      {"context 2", 5, context2(one, classes, {{}, {{{2, 3}, records}}})},
      {"context 3", 5, context3({one, coverage({2}), coverage({3})}, records)},
      {"chain 1", 6, chainContext1(one, {{{{}, {2, 3}, {}, records}}})},
      {"chain 2", 6, chainContext2(one, classes, classes, classes, {{}, {{{}, {2}, {}, records}}})},
      {"chain 3", 6, chainContext3({}, {one}, {coverage({2})}, records)},
      {"reverse", 8, reverseChainSubst(one, {}, {coverage({2})}, {9})}};
}

bool matches(const Matcher& matcher, std::int64_t comparisons) {
  qxtest::LayoutTableBuilder table;
  table.lookup(matcher.type, 8, {matcher.subTable});
  const qxtest::TestFont font(table.str(), qxtest::gdefTable(qxtest::testClasses()));
  const auto run = qxtest::glyphRun(font, {1, 50, 2, 3});
  WorkMeter meter(comparisons, 0, 0);
  const GlyphSequence glyphs(run, meter);
  const auto& subTable = *font.gsub->lookupList.lookups.at(0).subTables.at(0);
  std::span<const TTI_SubstLookupRecord> records;
  std::vector<int> skipped;
  int position = 0;
  return subTable.ligatureGlyph(font, glyphs, position, 8, skipped) != 0xFFFF ||
         subTable.matchContext(font, records, glyphs, 0, 8, skipped) != 0 ||
         subTable.reverseGlyph(font, glyphs, 0, 8) != 0xFFFF;
}

TEST(WorkMeter, EveryMatcherFailsOnceItIsSpent) {
  for (const Matcher& matcher : allMatchers()) {
    EXPECT_TRUE(matches(matcher, 100)) << matcher.what;
    EXPECT_FALSE(matches(matcher, 1)) << matcher.what;
    EXPECT_FALSE(matches(matcher, -1)) << matcher.what;
  }
}

TEST(WorkMeter, SpentLigaturesDoNotWalkAlongTheGlyphs) {
  qxtest::LayoutTableBuilder table;
  table.lookup(4, 8, {qxtest::ligatureSubst(qxtest::coverage({1}), {{{70, {2}}, {71, {3}}}})});
  const qxtest::TestFont font(table.str(), qxtest::gdefTable(qxtest::testClasses()));
  const auto run = qxtest::glyphRun(font, {1, 50, 50, 50, 9});
  WorkMeter meter(2, 0, 0);
  std::vector<int> skipped;
  int position = 0;
  const auto& ligatures = *font.gsub->lookupList.lookups.at(0).subTables.at(0);
  EXPECT_EQ(ligatures.ligatureGlyph(font, {run, meter}, position, 8, skipped), 0xFFFF);
  EXPECT_EQ(skipped, (std::vector<int>{1, 2, 3}));  // of the first
  skipped.clear();
  EXPECT_EQ(ligatures.ligatureGlyph(font, {run, meter}, position, 8, skipped), 0xFFFF);
  EXPECT_TRUE(skipped.empty());
}

}  // namespace
}  // namespace QXFontService_NS::layout
