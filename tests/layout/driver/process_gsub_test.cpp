#include "layout/driver/process_gsub.h"

#include <gtest/gtest.h>

#include "layout/glyph_runs.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

constexpr unsigned kIgnoreMarks = 8;

/// A font whose feature 'test' has all of the lookups, in their order.
TestFont fontOf(const LayoutTableBuilder& lookups) {
  return TestFont(lookups.str(), gdefTable(testClasses()));
}

TestFont fontOfOne(unsigned type, unsigned flag, const std::string& subTable) {
  LayoutTableBuilder table;
  table.onlyLookup("test", type, flag, {subTable});
  return fontOf(table);
}

const Ids kUntouched{-1};

TEST(ProcessGsub, SingleGivesOneGlyph) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({5}), 65));
  EXPECT_EQ(stepAt(font, {1, 5, 2}, 1), (Step{1, 2, {70}, kUntouched}));
  EXPECT_EQ(stepAt(font, {1, 5, 2}, 0), (Step{0, 0, kUntouched, kUntouched}));
}

TEST(ProcessGsub, NewGlyphHasTheFontsClass) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({5}), 65));
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  const auto input = glyphRun(font, {5});
  QXFontService_NS::GlyphIDArray output, matched;
  int position = 0;
  QXFontService_NS::layout::processGSUB(info.get(), kTestTag, input, position, output, matched, 1);
  EXPECT_EQ(output[0].glyphClass, QXFontService_NS::GCD_LIGATURE);
}

TEST(ProcessGsub, MultipleGivesItsSequence) {
  const TestFont font = fontOfOne(2, 0, multipleSubst(coverage({5, 6}), {{7, 8, 9}, {}}));
  EXPECT_EQ(stepAt(font, {5, 1}, 0), (Step{3, 1, {7, 8, 9}, kUntouched}));
  EXPECT_EQ(stepAt(font, {6, 1}, 0), (Step{0, 0, kUntouched, kUntouched}));  // empty: no hit
}

TEST(ProcessGsub, AlternateTakesTheOneAskedFor) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 3, 0, {alternateSubst(coverage({5}), {{7, 8}})});
  table.onlyLookup("test", 1, 0, {singleSubst(coverage({5}), 4)});
  const TestFont font = fontOf(table);
  EXPECT_EQ(stepAt(font, {5}, 0, 1).output, (Ids{7}));
  EXPECT_EQ(stepAt(font, {5}, 0, 2), (Step{1, 1, {8}, kUntouched}));
  for (const int alternate : {0, -1, 3})  // the next lookup gets its turn
    EXPECT_EQ(stepAt(font, {5}, 0, alternate), (Step{1, 1, {9}, kUntouched}));
}

TEST(ProcessGsub, LigatureHandsBackWhatItPassedOver) {
  const TestFont font = fontOfOne(4, kIgnoreMarks, ligatureSubst(coverage({1}), {{{70, {2}}}}));
  EXPECT_EQ(stepAt(font, {9, 1, 50, 51, 2, 3}, 1), (Step{1, 5, {70}, {50, 51}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0), (Step{1, 2, {70}, {}}));
  EXPECT_EQ(stepAt(font, {1, 50, 3}, 0), (Step{0, 0, kUntouched, kUntouched}));
}

TEST(ProcessGsub, LookupsStandInTheFeaturesOrderNotSorted) {
  LayoutTableBuilder table;
  const unsigned plus10 = table.lookup(1, 0, {singleSubst(coverage({5}), 10)});
  const unsigned plus20 = table.lookup(1, 0, {singleSubst(coverage({5, 6}), 20)});
  table.script("test", {{table.feature("test", {plus20, plus10})}});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0).output, (Ids{25}));
}

TEST(ProcessGsub, FeaturesOfOneTagStandInTheLanguageSystemsOrder) {
  LayoutTableBuilder table;
  const unsigned first =
      table.feature("test", {table.lookup(1, 0, {singleSubst(coverage({5}), 10)})});
  const unsigned second =
      table.feature("test", {table.lookup(1, 0, {singleSubst(coverage({5, 6}), 20)})});
  table.script("test", {{second, first}});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0).output, (Ids{25}));
}

TEST(ProcessGsub, HitEndsTheCall) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 1, 0, {singleSubst(coverage({5}), 1)});
  table.onlyLookup("test", 1, 0, {singleSubst(coverage({6}), 1)});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0), (Step{1, 1, {6}, kUntouched}));
}

TEST(ProcessGsub, NeverRunsReverseChains) {
  const std::string reverse = reverseChainSubst(coverage({5}), {}, {}, {6});
  const TestFont font = fontOfOne(8, 0, reverse);
  EXPECT_EQ(stepAt(font, {5, 1}, 0), (Step{0, 0, kUntouched, kUntouched}));
  EXPECT_EQ(passOver(font, 0, {5, 1}).glyphs, (Ids{6, 1}));
}

TEST(ProcessGsub, UnknownTagAndMissingLanguageSystemDoNothing) {
  LayoutTableBuilder table;
  table.script("test",
               {{table.feature("liga", {table.lookup(1, 0, {singleSubst(coverage({5}), 1)})})}});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0), (Step{0, 0, kUntouched, kUntouched}));
  EXPECT_EQ(stepAt(TestFont(), {5}, 0), (Step{0, 0, kUntouched, kUntouched}));
}

TEST(ProcessGsub, PositionOutsideAndNoInfoDoNothing) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({5}), 1));
  for (const int position : {-1, 1, 100})
    EXPECT_EQ(stepAt(font, {5}, position), (Step{0, position, kUntouched, kUntouched}));
  const auto input = glyphRun(font, {5});
  QXFontService_NS::GlyphIDArray output, matched;
  int position = 0;
  EXPECT_EQ(
      QXFontService_NS::layout::processGSUB(nullptr, kTestTag, input, position, output, matched, 1),
      0);
}

TEST(ProcessGsub, LookupThatIsNotThereIsPassedBy) {
  LayoutTableBuilder table;
  const unsigned last = table.lookup(1, 0, {singleSubst(coverage({5}), 1)});
  table.script("test", {{table.feature("test", {99, last})}});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0).output, (Ids{6}));
}

TEST(ProcessGsub, SubstituteFFFFIsAMissOfItsSubTable) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 1, 0,
                   {singleSubst(coverage({5}), std::vector<unsigned>{0xFFFF}), "x",
                    singleSubst(coverage({5}), 2)});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0).output, (Ids{7}));
}

TEST(ProcessGsub, ExtensionOfMixedTypesRunsThoseOfTheLast) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 7, 0,
                   {extensionSubTable(1, singleSubst(coverage({5}), 1)),
                    extensionSubTable(2, multipleSubst(coverage({5, 6}), {{7, 8}, {9}}))});
  EXPECT_EQ(stepAt(fontOf(table), {5}, 0), (Step{2, 1, {7, 8}, kUntouched}));
  LayoutTableBuilder other;
  other.onlyLookup("test", 7, 0,
                   {extensionSubTable(2, multipleSubst(coverage({5}), {{7, 8}})),
                    extensionSubTable(1, singleSubst(coverage({5}), 1))});
  EXPECT_EQ(stepAt(fontOf(other), {5}, 0), (Step{1, 1, {6}, kUntouched}));
}

TEST(ProcessGsub, OutputMayBeTheInput) {
  const TestFont font = fontOfOne(4, kIgnoreMarks, ligatureSubst(coverage({1}), {{{70, {2}}}}));
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  auto glyphs = glyphRun(font, {1, 50, 2});
  QXFontService_NS::GlyphIDArray matched;
  int position = 0;
  EXPECT_EQ(QXFontService_NS::layout::processGSUB(info.get(), kTestTag, glyphs, position, glyphs,
                                                  matched, 1),
            1);
  EXPECT_EQ(idsOf(glyphs), (Ids{70}));
  EXPECT_EQ(idsOf(matched), (Ids{50}));
}

// Contextual lookups: the lookups below are run by rules, 'test' has the last alone.

struct ContextFont {
  LayoutTableBuilder table;

  ContextFont& lookup(unsigned type, const std::string& subTable, unsigned flag = 0) {
    table.lookup(type, flag, {subTable});
    return *this;
  }
  TestFont font(unsigned type, const std::string& subTable, unsigned flag = 0) {
    table.onlyLookup("test", type, flag, {subTable});
    return fontOf(table);
  }
};

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

TEST(ProcessGsubContext, GivesTheRestOfTheSequenceBehindTheReplacement) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({1, 2}), 10))
                            .font(5, context3({covered(1), covered(2)}, {{0, 0}, {1, 0}}));
  EXPECT_EQ(stepAt(font, {9, 1, 2, 8, 7}, 1), (Step{2, 3, {11, 12, 8, 7}, {}}));
}

TEST(ProcessGsubContext, Format1RuleThatFitsChangesNothing) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({1}), 10))
                            .font(5, context1(coverage({1}), {{{{2}, {{0, 0}}}}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0), (Step{0, 0, kUntouched, kUntouched}));
}

TEST(ProcessGsubContext, LaterRecordsReadTheUnchangedGlyphs) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({1}), 10))
                            .lookup(1, singleSubst(coverage({1, 11}), 20))
                            .font(5, context3({covered(1), covered(2)}, {{0, 0}, {0, 1}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0).output, (Ids{21, 2}));  // not 31
}

TEST(ProcessGsubContext, ResultReachesTheFurthestHit) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({3}), 10))
                            .font(5, context3({covered(1), covered(2), covered(3)}, {{2, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2, 3, 4}, 0), (Step{3, 3, {1, 2, 13, 4}, {}}));
}

TEST(ProcessGsubContext, MissMovesThePositionToo) {
  // A hit at 0 and a miss at 2: the replacement is one glyph, for two of the input.
  const TestFont font =
      ContextFont()
          .lookup(1, singleSubst(coverage({1}), 10))
          .font(5, context3({covered(1), covered(2), covered(3)}, {{0, 0}, {2, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2, 3}, 0), (Step{1, 2, {11, 2, 3}, {}}));
}

TEST(ProcessGsubContext, MatchWithoutEffectFillsTheOutputAndMayMoveThePosition) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({9}), 10))
                            .font(5, context3({covered(1), covered(2)}, {{1, 0}}));
  EXPECT_EQ(stepAt(font, {8, 1, 2, 3}, 1), (Step{0, 2, {1, 2, 3}, kUntouched}));
  const TestFont noRecords = ContextFont().font(5, context3({covered(1)}, {}));
  EXPECT_EQ(stepAt(noRecords, {8, 1, 2, 3}, 1), (Step{0, 1, {1, 2, 3}, kUntouched}));
}

TEST(ProcessGsubContext, MatchWithoutEffectDoesNotMoveTheNextLookup) {
  ContextFont fonts;
  fonts.lookup(1, singleSubst(coverage({9}), 10));
  fonts.table.onlyLookup("test", 5, 0, {context3({covered(1), covered(2)}, {{1, 0}})});
  const TestFont font = fonts.font(1, singleSubst(coverage({1}), 10));
  EXPECT_EQ(stepAt(font, {1, 2, 3}, 0), (Step{1, 1, {11}, kUntouched}));
}

TEST(ProcessGsubContext, RuleWithoutRecordsStopsLaterSubTablesInFormat3Only) {
  const std::string effective = context3({covered(1)}, {{0, 0}});
  const auto stepOf = [&](unsigned type, const std::string& empty) {
    LayoutTableBuilder table;
    table.lookup(1, 0, {singleSubst(coverage({1}), 10)});
    table.onlyLookup(
        "test", type, 0,
        {empty, type == 5 ? effective : chainContext3({}, {covered(1)}, {}, {{0, 0}})});
    return stepAt(fontOf(table), {1, 2}, 0).result;
  };
  EXPECT_EQ(stepOf(5, context3({covered(1)}, {})), 0);
  EXPECT_EQ(stepOf(6, chainContext3({}, {covered(1)}, {}, {})), 0);
  EXPECT_EQ(stepOf(5, context2(covered(1), classDef(1, {1, 2}), {{}, {{{2}, {}}}})), 1);
  EXPECT_EQ(stepOf(6, chainContext1(covered(1), {{{{}, {}, {}, {}}}})), 1);
}

TEST(ProcessGsubContext, RecordedSkipsShiftSequenceIndices) {
  const std::string classes = classDefOfRanges({{1, 1, 1}, {2, 3, 2}});
  const TestFont font =
      ContextFont()
          .lookup(1, singleSubst(coverage({2, 3}), 10))
          .font(5, context2(covered(1), classes, {{}, {{{2, 2}, {{1, 0}, {2, 0}}}}}), kIgnoreMarks);
  // The mark before 2 is recorded, the one before 3 is not.
  EXPECT_EQ(stepAt(font, {1, 50, 2, 3}, 0).output, (Ids{1, 50, 12, 13}));
  EXPECT_EQ(stepAt(font, {1, 50, 2, 51, 3}, 0).output, (Ids{1, 50, 12, 51, 3}));
}

TEST(ProcessGsubContext, CoverageRulesRecordNoSkips) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({2, 50}), 10))
                            .font(5, context3({covered(1), covered(2)}, {{1, 0}}), kIgnoreMarks);
  EXPECT_EQ(stepAt(font, {1, 50, 2}, 0).output, (Ids{1, 60, 2}));
}

TEST(ProcessGsubContext, MatchedHoldsWhatANestedLigaturePassedOverNotTheRule) {
  const std::string classes = classDefOfRanges({{1, 1, 1}, {2, 2, 2}});
  const TestFont font =
      ContextFont()
          .lookup(4, ligatureSubst(coverage({1}), {{{70, {2}}}}), kIgnoreMarks)
          .font(5, context2(covered(1), classes, {{}, {{{2}, {{0, 0}}}}}), kIgnoreMarks);
  EXPECT_EQ(stepAt(font, {1, 50, 2, 3}, 0), (Step{1, 3, {70, 0xFFFF, 0xFFFF, 3}, {50}}));
  const TestFont single =
      ContextFont()
          .lookup(1, singleSubst(coverage({1}), 10))
          .font(5, context2(covered(1), classes, {{}, {{{2}, {{0, 0}}}}}), kIgnoreMarks);
  EXPECT_EQ(stepAt(single, {1, 50, 2}, 0).matched, Ids{});
}

TEST(ProcessGsubContext, HolesOfALigatureStayWhereALaterRecordHits) {
  const TestFont font =
      ContextFont()
          .lookup(4, ligatureSubst(coverage({1}), {{{70, {2}}}}))
          .lookup(1, singleSubst(coverage({3}), 10))
          .font(5, context3({covered(1), covered(2), covered(3)}, {{0, 0}, {2, 1}}));
  EXPECT_EQ(stepAt(font, {1, 2, 3}, 0), (Step{3, 3, {70, 0xFFFF, 13}, {}}));
}

TEST(ProcessGsubContext, NestedMultipleIsNotAccountedForByLaterRecords) {
  const TestFont font = ContextFont()
                            .lookup(2, multipleSubst(coverage({1}), {{7, 8, 9}}))
                            .lookup(1, singleSubst(coverage({2}), 10))
                            .font(5, context3({covered(1), covered(2)}, {{0, 0}, {1, 1}}));
  EXPECT_EQ(stepAt(font, {1, 2, 3}, 0), (Step{3, 2, {7, 12, 9, 2, 3}, {}}));
}

TEST(ProcessGsubContext, NestedMultipleOfNothingIsAMiss) {
  const TestFont font = ContextFont()
                            .lookup(2, multipleSubst(coverage({1}), {{}}))
                            .font(5, context3({covered(1)}, {{0, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0).result, 0);
}

TEST(ProcessGsubContext, NestedAlternateIsAlwaysTheFirst) {
  const TestFont font = ContextFont()
                            .lookup(3, alternateSubst(coverage({1}), {{7, 8}}))
                            .font(5, context3({covered(1)}, {{0, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0, 2).output, (Ids{7, 2}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0, 0).output, (Ids{7, 2}));
}

TEST(ProcessGsubContext, NestedReverseChainDoesNothing) {
  const TestFont font = ContextFont()
                            .lookup(8, reverseChainSubst(coverage({1}), {}, {}, {7}))
                            .font(5, context3({covered(1)}, {{0, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0).result, 0);
}

TEST(ProcessGsubContext, PlaceOutsideTheSequenceIsPassedOverWhole) {
  const TestFont font = ContextFont()
                            .lookup(1, singleSubst(coverage({1}), 10))
                            .font(5, context3({covered(1)}, {{9, 0}, {0, 0}, {2, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0), (Step{1, 1, {11, 2}, {}}));
}

TEST(ProcessGsubContext, LookupThatIsNotThereIsAMiss) {
  const TestFont font = ContextFont().font(5, context3({covered(1), covered(2)}, {{1, 99}}));
  EXPECT_EQ(stepAt(font, {1, 2}, 0), (Step{0, 1, {1, 2}, kUntouched}));
}

TEST(ProcessGsubContext, NestedContextCountsOneAndErasesItsHead) {
  // At 0 the nested rule's output is in place; the answer of a nested context counts 1.
  const TestFont atStart = ContextFont()
                               .lookup(1, singleSubst(coverage({1, 2}), 10))
                               .lookup(5, context3({covered(1), covered(2)}, {{0, 0}, {1, 0}}))
                               .font(5, context3({covered(1)}, {{0, 1}}));
  EXPECT_EQ(stepAt(atStart, {1, 2, 3}, 0), (Step{1, 2, {11, 12, 3}, {}}));
  // Elsewhere both levels erase their heads: the glyphs come from further right.
  EXPECT_EQ(stepAt(atStart, {8, 1, 2, 3}, 1), (Step{1, 3, {12, 3}, {}}));
}

TEST(ProcessGsubContext, ResultIsClippedToTheOutput) {
  // The nested context at 1 erases one glyph, the outer one two: nothing of the result is left.
  const TestFont font =
      ContextFont()
          .lookup(1, singleSubst(coverage({2}), 10))
          .lookup(6, chainContext3({}, {covered(2)}, {}, {{0, 0}}))
          .font(6, chainContext3({covered(9)}, {covered(1), covered(2)}, {}, {{1, 1}}));
  EXPECT_EQ(stepAt(font, {9, 1, 2}, 1), (Step{0, 3, {}, kUntouched}));
  EXPECT_EQ(stepAt(font, {9, 1, 2, 3}, 1), (Step{1, 3, {3}, {}}));
}

TEST(ProcessGsubContext, WritesIntoAShortenedOutputAreDropped) {
  const TestFont font =
      ContextFont()
          .lookup(1, singleSubst(coverage({2, 3}), 10))
          .lookup(6, chainContext3({}, {covered(2)}, {}, {{0, 0}}))
          .font(6, chainContext3({}, {covered(1), covered(2), covered(3)}, {}, {{1, 1}, {2, 0}}));
  EXPECT_EQ(stepAt(font, {1, 2, 3}, 0), (Step{2, 3, {12, 3}, {}}));
}

TEST(ProcessGsubContext, LigatureMissLeavesItsPlacesForTheCaller) {
  // The nested ligature fails behind the mark; the single substitution hits.
  const TestFont font = ContextFont()
                            .lookup(4, ligatureSubst(coverage({1}), {{{70, {3}}}}), kIgnoreMarks)
                            .lookup(1, singleSubst(coverage({1}), 10))
                            .font(6, chainContext3({}, {covered(1)}, {}, {{0, 0}, {0, 1}}));
  EXPECT_EQ(stepAt(font, {1, 50, 2}, 0), (Step{1, 1, {11, 50, 2}, {50}}));
}

}  // namespace
}  // namespace qxtest
