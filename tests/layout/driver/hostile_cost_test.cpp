// What damaged tables could make take hours is counted or bounded. Counting is shown with small
// budgets, since the real ones allow about half a second of an optimized build.

#include <gtest/gtest.h>

#include "layout/glyph_runs.h"
#include "layout/gpos/position_runs.h"
#include "layout/gsub/lookup_pass.h"
#include "layout/gsub/lookups.h"
#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"
#include "support/be_bytes.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

namespace layout = QXFontService_NS::layout;
using layout::WorkMeter;

constexpr std::int64_t kPlenty = 1'000'000;

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

/// Whether a lookup of 1,000 times a subtable spends a budget of so many comparisons at glyph 1.
template <class Ask>
bool spends(std::int64_t comparisons, unsigned type, const std::string& subTable, Ask ask) {
  LayoutTableBuilder table;
  table.repeatedLookup(type, 0, subTable, 1'000);
  const TestFont font(table.str());
  const auto run = glyphRun(font, {1, 2});
  WorkMeter meter(comparisons, kPlenty, 10);
  ask(font, font.gsub->lookupList, layout::GlyphSequence(run, meter));
  return !meter.compare(0);
}

struct Asked {
  const char* what;
  unsigned type;
  std::string subTable;  ///< covers glyph 1 and has no answer
  void (*ask)(const TestFont&, const layout::TTI_LookupList&, const layout::GlyphSequence&);
};

std::vector<Asked> allAsked() {
  using Font = const TestFont&;
  using List = const layout::TTI_LookupList&;
  using Glyphs = const layout::GlyphSequence&;
  const auto single = [](Font font, List list, Glyphs glyphs) {
    layout::lookupSingle(font, list.lookups[0], 1, glyphs.meter());
  };
  const auto alternate = [](Font font, List list, Glyphs glyphs) {
    layout::lookupAlternate(font, list.lookups[0], 1, 1, glyphs.meter());
  };
  const auto multiple = [](Font font, List list, Glyphs glyphs) {
    QXFontService_NS::GlyphIDArray output;
    layout::lookupMultiple(font, list.lookups[0], 1, output, glyphs.meter());
  };
  const auto ligature = [](Font font, List list, Glyphs glyphs) {
    int position = 0;
    std::vector<int> skipped;
    layout::lookupLigature(font, list.lookups[0], glyphs, position, skipped);
  };
  const auto reverse = [](Font font, List list, Glyphs glyphs) {
    layout::lookupReverse(font, list.lookups[0], glyphs, 0);
  };
  const auto context = [](Font font, List list, Glyphs glyphs) {
    int position = 0;
    std::vector<int> skipped;
    layout::ContextRun(font, list).apply(list.lookups[0], glyphs, position, skipped);
  };
  return {{"single", 1, singleSubst(covered(1), -2), single},
          {"multiple", 2, multipleSubst(covered(1), {}), multiple},
          {"alternate", 3, alternateSubst(covered(1), {{}}), alternate},
          {"ligature", 4, ligatureSubst(covered(1), {{}}), ligature},
          {"context", 5, context1(covered(1), {{}}), context},
          {"chain", 6, chainContext3({covered(1)}, {covered(1)}, {}, {}), context},
          {"reverse", 8, reverseChainSubst(covered(1), {covered(1)}, {}, {}), reverse}};
}

TEST(HostileCost, EachSubTableAskedIsCounted) {
  for (const Asked& each : allAsked()) {
    EXPECT_FALSE(spends(1'000, each.type, each.subTable, each.ask)) << each.what;
    EXPECT_TRUE(spends(999, each.type, each.subTable, each.ask)) << each.what;
  }
}

TEST(HostileCost, EachSubTableOfPositioningAskedIsCounted) {
  using namespace gpos;
  LayoutTableBuilder table;
  table.repeatedLookup(1, 0, singlePos2(covered(1), 1, {}), 1'000);
  const GposFont font(table.str());
  for (const auto& [comparisons, spent] : {std::pair(1'000, false), std::pair(999, true)}) {
    Glyphs glyphs{placed(1)};
    layout::PositionRun run(glyphs, WorkMeter(comparisons, kPlenty, 10));
    layout::LookupRun lookups(font, font.gpos->lookupList, run, false);
    int position = 0;
    EXPECT_FALSE(lookups.applyGPOSLookup(font.gpos->lookupList.lookups[0], position));
    EXPECT_EQ(run.spend(0), !spent);
  }
}

TEST(HostileCost, LigaturesThatAreTooLongAreCounted) {
  const std::vector<Ligature> set(1'000, Ligature{9, {2, 2}});
  LayoutTableBuilder table;
  table.lookup(4, 0, {ligatureSubst(covered(1), {set})});
  const TestFont font(table.str());
  const auto run = glyphRun(font, {1, 2});
  for (const auto& [comparisons, spent] : {std::pair(1'001, false), std::pair(1'000, true)}) {
    WorkMeter meter(comparisons, 0, 0);
    int position = 0;
    std::vector<int> skipped;
    layout::lookupLigature(font, font.gsub->lookupList.lookups[0], {run, meter}, position, skipped);
    EXPECT_EQ(meter.compare(0), !spent);
  }
}

TEST(HostileCost, SumsOfMovesAreCounted) {
  gpos::Glyphs glyphs(100, gpos::placed(1));
  layout::PositionRun run(glyphs, WorkMeter(149, 0, 0));
  EXPECT_EQ(run.sumOfMoves(0, 50), 50u * 500);
  EXPECT_EQ(run.sumOfMoves(0, 100), 100u * 500);  // the first half is known
  EXPECT_TRUE(run.spend(0));
  EXPECT_EQ(run.sumOfMoves(50, 100), 50u * 500);
  EXPECT_FALSE(run.spend(0));
}

/// The glyphs after a pass of the font's last lookup that may spend so many comparisons.
Ids passWith(const TestFont& font, const Ids& ids, std::int64_t comparisons) {
  auto array = glyphRun<QXFontService_NS::GlyphIDArray2>(font, ids);
  QXFontService_NS::GlyphRecordAccess::words(array).assign(ids.size(), 1);
  layout::PassArrays arrays(array, {});
  layout::LookupPass pass(font, font.gsub->lookupList, 1, arrays,
                          WorkMeter(comparisons, kPlenty, 10));
  pass.run(font.gsub->lookupList.lookups.back());
  arrays.release(array);
  return idsOf(array);
}

std::ptrdiff_t countOf(const Ids& ids, int id) {
  return std::count(ids.begin(), ids.end(), id);
}

TEST(HostileCost, GlyphsReplacedFarFromTheirMatchAreCounted) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {singleSubst(covered(1), 1)});
  table.lookup(6, 0, {chainContext3({}, {covered(1)}, {}, {{1'000, 0}})});
  const TestFont font(table.str());
  const Ids text(2'000, 1);
  EXPECT_EQ(countOf(passWith(font, text, 100'000'000), 2), 1'000);
  const auto changed = countOf(passWith(font, text, 100'000), 2);
  EXPECT_GT(changed, 10);
  EXPECT_LT(changed, 100);
}

TEST(HostileCost, WayBackToTheHolderOfACountIsCounted) {
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(covered(1), {std::vector<unsigned>(2'001, 2)})});
  table.lookup(4, 0, {ligatureSubst(covered(2), {{{3, {2}}}})});
  table.lookup(6, 0,
               {chainContext3({}, {covered(1)}, {}, {{0, 0}}),
                chainContext3({}, {covered(2)}, {}, {{0, 1}})});
  const TestFont font(table.str());
  EXPECT_EQ(countOf(passWith(font, {1, 9}, 100'000'000), 3), 1'000);
  const auto joined = countOf(passWith(font, {1, 9}, 100'000), 3);
  EXPECT_GT(joined, 100);
  EXPECT_LT(joined, 500);
}

TEST(HostileCost, ShiftsOfHeldOutputAreCounted) {
  const TestFont font;
  const auto run = glyphRun(font, Ids(1'601, 1));
  WorkMeter meter(1'599 + 100 + 10 * 100, 0, 0);
  const layout::GlyphSequence glyphs(run, meter);
  layout::ContextOutput output;
  output.reset(glyphs);
  output.set(1'600, {2, QXFontService_NS::GCD_BASE});
  output.set(0, {2, QXFontService_NS::GCD_BASE});
  for (int i = 0; i < 9; ++i) output.insert(0, {3, QXFontService_NS::GCD_BASE});
  EXPECT_TRUE(meter.compare(0));
  for (int i = 0; i < 2; ++i) output.insert(0, {3, QXFontService_NS::GCD_BASE});
  EXPECT_FALSE(meter.compare(0));
}

TEST(HostileCost, NestedExpansionsEndAtTheGrowthBound) {
  LayoutTableBuilder table;
  table.lookup(6, 0, {chainContext3({}, {covered(1)}, {}, LookupRecords(20, {0, 1}))});
  table.lookup(2, 0, {multipleSubst(covered(1), {std::vector<unsigned>(20'000, 2)})});
  table.script("test", {{table.feature("test", {0})}});
  const unsigned before = layout::spentBudgets().growth;
  const Step step = stepAt(TestFont(table.str()), {1, 9}, 0);
  EXPECT_EQ(step.result, 20'000);
  EXPECT_EQ(step.output.size(), 2 + 4 * 19'999u);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().growth, before + 16);
  }
}

TEST(HostileCost, NestedExpansionsAreCounted) {
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(covered(1), {std::vector<unsigned>(100, 2)})});
  table.lookup(6, 0, {chainContext3({}, {covered(1)}, {}, LookupRecords(50, {0, 0}))});
  const TestFont font(table.str());
  EXPECT_EQ(passWith(font, {1}, kPlenty).size(), 100u);
  EXPECT_EQ(passWith(font, {1}, 50), (Ids{1}));
}

TEST(HostileCost, RecordsFindTheirPlacesBehindAnyNumberOfSkippedGlyphs) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {singleSubst(covered(2), 1)});
  const Rule rule{{2}, LookupRecords(10'000, {1, 0})};
  table.lookup(5, 8, {context2(covered(1), classDef(1, {1, 2}), {{}, {rule}})});
  table.script("test", {{table.feature("test", {1})}});
  Ids text(50'000, 50);
  text.front() = 1;
  text.back() = 2;
  const Step step = stepAt(TestFont(table.str(), gdefTable(testClasses())), text, 0);
  EXPECT_EQ(step.result, 50'000);
  EXPECT_EQ(step.output.back(), 3);
}

TEST(HostileCost, VerticalFormIsSoughtInABoundedNumberOfSubTables) {
  const auto formOf = [](unsigned times) {
    LayoutTableBuilder table;
    table.lookup(1, 0, {singleSubst(covered(1), 6)});
    table.repeatedLookup(1, 0, singleSubst(covered(1), -2), 32'000);
    std::vector<unsigned> lookups(times, 1);
    lookups.push_back(0);
    table.feature("vert", lookups);
    return layout::verticalSubstitute(TestFont(table.str()), 1);
  };
  EXPECT_EQ(formOf(2), 7);
  EXPECT_EQ(formOf(3), 0xFFFF);
}

// Tables that overlap.

TEST(HostileCost, ScriptsThatOverlapEndAtTheGraphBudget) {
  constexpr unsigned kScripts = 10'000;
  BeBytes bytes;
  bytes.u32(0x00010000).u16(10).u16(0).u16(0).u16(kScripts);
  for (unsigned i = 0; i < kScripts; ++i) bytes.u16(0xFFFF).u16(i).u16(2 + 6 * i);
  const unsigned before = layout::spentBudgets().graph;
  const TestFont font(bytes.str());
  EXPECT_EQ(font.gsub->scripts.size(), kScripts);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().graph, before + 1);
  }
}

TEST(HostileCost, OneLanguageNamedByManyRecordsEndsAtTheGraphBudget) {
  // Each word of a row of 20,000 may be read as a number of records that all name one language.
  constexpr unsigned kScripts = 32;
  constexpr unsigned kRecords = 20'000;
  BeBytes bytes;
  bytes.u32(0x00010000).u16(10).u16(0).u16(0).u16(kScripts);
  for (unsigned i = 0; i < kScripts; ++i) bytes.u32(i + 1).u16(2 + 6 * kScripts + 2 * i);
  for (unsigned i = 0; i < 3 * kRecords; ++i) bytes.u16(kRecords);
  const unsigned before = layout::spentBudgets().graph;
  const TestFont font(bytes.str());
  EXPECT_EQ(font.gsub->scripts.size(), kScripts);
  if (layout::kCountsSpentBudgets) {
    EXPECT_EQ(layout::spentBudgets().graph, before + 1);
  }
}

TEST(HostileCost, IndicesOfUnknownFeaturesCountInTheLanguageSystems) {
  constexpr unsigned kSystems = 1'000;
  BeBytes bytes;
  bytes.u32(0x00010000).u16(10).u16(0).u16(0).u16(1).tag("latn").u16(8).u16(0).u16(kSystems);
  for (unsigned i = 0; i < kSystems; ++i) bytes.u32(i + 1).u16(10'000 + 2 * i);
  for (unsigned i = 0; i < 60'000; ++i) bytes.u16(0xFFFF);
  const unsigned before = layout::spentBudgets().langSys;
  const TestFont font(bytes.str());
  ASSERT_EQ(font.gsub->scripts.size(), 1u);
  EXPECT_EQ(font.gsub->scripts.begin()->second->langSys.size(), kSystems);
  if (layout::kCountsSpentBudgets) {
    EXPECT_GT(layout::spentBudgets().langSys, before);
  }
}

}  // namespace
}  // namespace qxtest
