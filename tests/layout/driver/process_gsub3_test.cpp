#include <gtest/gtest.h>

#include "layout/glyph_runs.h"
#include "support/context_builder.h"
#include "support/coverage_builder.h"
#include "support/gsub_builder.h"
#include "support/layout_table_builder.h"

namespace qxtest {
namespace {

constexpr unsigned kIgnoreMarks = 8;

TestFont fontOfOne(unsigned type, unsigned flag, const std::string& subTable) {
  LayoutTableBuilder table;
  table.onlyLookup("test", type, flag, {subTable});
  return TestFont(table.str(), gdefTable(testClasses()));
}

/// A font whose only entry is a contextual lookup, which runs others, from index 0 on.
TestFont contextFont(const std::vector<std::pair<unsigned, std::string>>& nested, unsigned type,
                     const std::string& subTable, unsigned flag = 0, unsigned nestedFlag = 0) {
  LayoutTableBuilder table;
  for (const auto& [nestedType, bytes] : nested) table.lookup(nestedType, nestedFlag, {bytes});
  table.onlyLookup("test", type, flag, {subTable});
  return TestFont(table.str(), gdefTable(testClasses()));
}

std::string covered(unsigned glyph) {
  return coverage({glyph});
}

Pass unchanged(const Ids& ids) {
  return {false, ids, Ids(ids.size(), 1), Ids(ids.size(), 0)};
}

TEST(ProcessGsub3, SingleReplacesEach) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({1, 2}), 1));
  EXPECT_EQ(passOver(font, 0, {1, 2, 3, 1}),
            (Pass{true, {2, 3, 3, 2}, {1, 1, 1, 1}, {0, 0, 0, 0}}));
  EXPECT_EQ(passOver(font, 0, {3, 4}), unchanged({3, 4}));
  EXPECT_EQ(passOver(font, 0, {}), unchanged({}));
}

TEST(ProcessGsub3, AlternateTakesTheOneAskedFor) {
  const TestFont font = fontOfOne(3, 0, alternateSubst(coverage({1}), {{7, 8}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 1}, {}, 2).glyphs, (Ids{8, 2, 8}));
  EXPECT_EQ(passOver(font, 0, {1, 2}, {}, 0), unchanged({1, 2}));
  EXPECT_EQ(passOver(font, 0, {1, 2}, {}, 3), unchanged({1, 2}));
}

TEST(ProcessGsub3, ExpansionCountsOnItsFirstGlyph) {
  const TestFont font = fontOfOne(2, 0, multipleSubst(coverage({1}), {{7, 8, 9}}));
  EXPECT_EQ(passOver(font, 0, {2, 1, 3, 1}),
            (Pass{true, {2, 7, 8, 9, 3, 7, 8, 9}, {1, 1, 0, 0, 1, 1, 0, 0}, Ids(8, 0)}));
}

TEST(ProcessGsub3, ExpansionDoesNotLookAtItsNewGlyphs) {
  const TestFont font = fontOfOne(2, 0, multipleSubst(coverage({1, 2}), {{1, 2}, {1}}));
  EXPECT_EQ(passOver(font, 0, {1, 2}), (Pass{true, {1, 2, 1}, {1, 0, 1}, {0, 0, 0}}));
}

TEST(ProcessGsub3, ExpansionToNothingIsNoHit) {
  const TestFont font = fontOfOne(2, 0, multipleSubst(coverage({1}), {{}}));
  EXPECT_EQ(passOver(font, 0, {1, 2}), unchanged({1, 2}));
}

TEST(ProcessGsub3, LigatureStandsForItsParts) {
  const TestFont font = fontOfOne(4, 0, ligatureSubst(coverage({1}), {{{70, {2, 3}}}}));
  EXPECT_EQ(passOver(font, 0, {4, 1, 2, 3, 5}), (Pass{true, {4, 70, 5}, {1, 3, 1}, {0, 0, 0}}));
}

TEST(ProcessGsub3, LigatureOfOneIsJustReplaced) {
  const TestFont font = fontOfOne(4, 0, ligatureSubst(coverage({1}), {{{70, {}}}}));
  EXPECT_EQ(passOver(font, 0, {1, 1}), (Pass{true, {70, 70}, {1, 1}, {0, 0}}));
  std::string none = ligatureSubst(coverage({1}), {{{70, {}}}});
  none.back() = 0;  // CompCount 0
  EXPECT_EQ(passOver(fontOfOne(4, 0, none), 0, {1, 1}), (Pass{true, {70, 70}, {1, 1}, {0, 0}}));
}

TEST(ProcessGsub3, SkippedGlyphsFollowTheLigatureMarkedWithTheirIndex) {
  const TestFont font =
      fontOfOne(4, kIgnoreMarks, ligatureSubst(coverage({1}), {{{70, {2}}, {71, {3, 3}}}}));
  EXPECT_EQ(passOver(font, 0, {1, 50, 2}), (Pass{true, {70, 50}, {2, 1}, {0, 1}}));
  EXPECT_EQ(passOver(font, 0, {9, 1, 50, 3, 51, 52, 3, 4}),
            (Pass{true, {9, 71, 50, 51, 52, 4}, {1, 3, 1, 1, 1, 1}, {0, 0, 2, 4, 5, 0}}));
}

TEST(ProcessGsub3, MaskedGlyphIsNoStartButMayBeConsumed) {
  const TestFont font = fontOfOne(4, 0, ligatureSubst(coverage({1}), {{{70, {1}}}}));
  EXPECT_EQ(passOver(font, 0, {1, 1, 1}, {1}), (Pass{true, {1, 70}, {1, 2}, {0, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 1}, {0, 1}), (Pass{true, {70}, {2}, {0}}));
  const TestFont single = fontOfOne(1, 0, singleSubst(coverage({1}), 1));
  EXPECT_EQ(passOver(single, 0, {1, 1, 1}, {0, 0x10000}).glyphs, (Ids{2, 1, 2}));
}

TEST(ProcessGsub3, MaskMovesWithTheGlyphs) {
  const TestFont expand = fontOfOne(2, 0, multipleSubst(coverage({1}), {{7, 8}}));
  EXPECT_EQ(passOver(expand, 0, {1, 1, 1}, {0, 1, 0}).glyphs, (Ids{7, 8, 1, 7, 8}));
  const TestFont join =
      fontOfOne(4, kIgnoreMarks, ligatureSubst(coverage({1, 50}), {{{70, {2}}}, {{71, {}}}}));
  EXPECT_EQ(passOver(join, 0, {1, 50, 2, 50}, {0, 1, 0, 0}).glyphs, (Ids{70, 50, 71}));
}

TEST(ProcessGsub3, OutputFedBackMasksEverything) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({1, 2}), 1));
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  auto glyphs = glyphRun<QXFontService_NS::GlyphIDArray2>(font, {1, 5});
  EXPECT_TRUE(QXFontService_NS::layout::processGSUB3(info.get(), 0, glyphs, glyphs, 1));
  EXPECT_EQ(idsOf(glyphs), (Ids{2, 5}));
  EXPECT_FALSE(QXFontService_NS::layout::processGSUB3(info.get(), 0, glyphs, glyphs, 1));
  EXPECT_EQ(idsOf(glyphs), (Ids{2, 5}));
}

TEST(ProcessGsub3, InvalidIndexLeavesTheOutput) {
  const TestFont font = fontOfOne(1, 0, singleSubst(coverage({1}), 1));
  for (const int index : {-1, 1, 1000})
    EXPECT_EQ(passOver(font, index, {1}), (Pass{false, {}, {}, {}})) << index;
  EXPECT_EQ(passOver(TestFont(), 0, {1}), (Pass{false, {}, {}, {}}));
  auto glyphs = glyphRun<QXFontService_NS::GlyphIDArray2>(font, {1});
  EXPECT_FALSE(QXFontService_NS::layout::processGSUB3(nullptr, 0, glyphs, glyphs, 1));
}

TEST(ProcessGsub3, EntryThatNamesNoLookupCopiesTheInput) {
  LayoutTableBuilder table;
  table.script("test", {{table.feature("test", {99})}});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {1, 2}, {1}), unchanged({1, 2}));
}

TEST(ProcessGsub3, LookupOfNoKnownTypeCopiesTheInput) {
  for (const unsigned type : {0U, 7U, 9U})
    EXPECT_EQ(passOver(fontOfOne(type, 0, ""), 0, {1, 2}), unchanged({1, 2}));
}

TEST(ProcessGsub3, InputStaysUnchanged) {
  const TestFont font = fontOfOne(4, 0, ligatureSubst(coverage({1}), {{{70, {2}}}}));
  const auto info = QXFontService_NS::layout::makeGSUBGPOSInfo(font, kTestTag, 0);
  const auto input = glyphRun<QXFontService_NS::GlyphIDArray2>(font, {1, 2});
  QXFontService_NS::GlyphIDArray2 output(7);
  EXPECT_TRUE(QXFontService_NS::layout::processGSUB3(info.get(), 0, input, output, 1));
  EXPECT_EQ(idsOf(input), (Ids{1, 2}));
  EXPECT_EQ(input.skipInfo(0), 0);
  EXPECT_EQ(idsOf(output), (Ids{70}));
}

TEST(ProcessGsub3, ReverseRunsDownAndSeesItsOwnResults) {
  const TestFont font =
      fontOfOne(8, 0, reverseChainSubst(coverage({1}), {}, {coverage({2, 9})}, {2}));
  EXPECT_EQ(passOver(font, 0, {1, 1, 1, 9}).glyphs, (Ids{2, 2, 2, 9}));
  EXPECT_EQ(passOver(font, 0, {1, 1, 1, 9}, {0, 1}).glyphs, (Ids{1, 1, 2, 9}));
}

// Contextual lookups.

TEST(ProcessGsub3Context, ReplacesAndMerges) {
  const TestFont font = contextFont({{1, singleSubst(coverage({1, 2}), 10)}}, 5,
                                    context3({covered(1), covered(2)}, {{0, 0}, {1, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 1, 2}),
            (Pass{true, {11, 12, 11, 12}, {2, 0, 2, 0}, {0, 0, 0, 0}}));
}

TEST(ProcessGsub3Context, ChangeOfTheSecondGlyphAloneStillCountsOnTheFirst) {
  const TestFont font = contextFont({{1, singleSubst(coverage({2}), 10)}}, 5,
                                    context3({covered(1), covered(2)}, {{1, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 3}), (Pass{true, {1, 12, 3}, {2, 0, 1}, {0, 0, 0}}));
}

TEST(ProcessGsub3Context, GlyphBetweenAHitAndAMissIsLost) {
  const TestFont font =
      contextFont({{1, singleSubst(coverage({1}), 10)}}, 5,
                  context3({covered(1), covered(2), covered(3)}, {{0, 0}, {2, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 3}), (Pass{true, {11, 3}, {2, 1}, {0, 0}}));
}

TEST(ProcessGsub3Context, NoPlainRuleStartsOnTheLastGlyph) {
  const std::pair<unsigned, std::string> single{1, singleSubst(coverage({1}), 10)};
  const TestFont plain = contextFont({single}, 5, context3({covered(1)}, {{0, 0}}));
  EXPECT_EQ(passOver(plain, 0, {1, 1}).glyphs, (Ids{11, 1}));
  const TestFont chain = contextFont({single}, 6, chainContext3({}, {covered(1)}, {}, {{0, 0}}));
  EXPECT_EQ(passOver(chain, 0, {1, 1}).glyphs, (Ids{11, 11}));
}

TEST(ProcessGsub3Context, Format1RulesChangeNothing) {
  const TestFont font = contextFont({{1, singleSubst(coverage({1}), 10)}}, 5,
                                    context1(coverage({1}), {{{{2}, {{0, 0}}}}}));
  EXPECT_EQ(passOver(font, 0, {1, 2}), unchanged({1, 2}));
}

TEST(ProcessGsub3Context, MatchWithoutEffectChangesNothing) {
  const TestFont font = contextFont({{1, singleSubst(coverage({9}), 10)}}, 5,
                                    context3({covered(1), covered(2)}, {{1, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 1, 2}), unchanged({1, 2, 1, 2}));
}

TEST(ProcessGsub3Context, PlainRuleIsDoneWithItsNewGlyphs) {
  // 1 2 becomes 1 1 2 ...: the new 1 is not looked at again.
  const TestFont font = contextFont({{2, multipleSubst(coverage({1}), {{3, 1}})}}, 5,
                                    context3({covered(1), covered(2)}, {{0, 0}}));
  EXPECT_EQ(passOver(font, 0, {1, 2, 9}), (Pass{true, {3, 1, 2, 9}, {1, 0, 1, 1}, {0, 0, 0, 0}}));
}

TEST(ProcessGsub3Context, ChainedRuleLooksAtItsNewGlyphsAgain) {
  // 1 becomes 3 4, and the new 4 becomes 5 in turn.
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(coverage({1, 4}), {{3, 4}, {5}})});
  table.onlyLookup("test", 6, 0, {chainContext3({}, {coverage({1, 4})}, {}, {{0, 0}})});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {1, 9}),
            (Pass{true, {3, 5, 9}, {1, 0, 1}, {0, 0, 0}}));
}

TEST(ProcessGsub3Context, ChainedRuleIsDoneUpToTheReturnOfItsFirstGlyph) {
  // 1 becomes 4 1 4: the first glyph comes back, so that only what follows it is looked at again.
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(coverage({1, 4}), {{4, 1, 4}, {5}})});
  table.onlyLookup("test", 6, 0, {chainContext3({}, {coverage({1, 4})}, {}, {{0, 0}})});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {1, 9}),
            (Pass{true, {4, 1, 5, 9}, {1, 0, 0, 1}, {0, 0, 0, 0}}));
}

TEST(ProcessGsub3Context, ReturnOfTheFirstGlyphCountsOnlyWhereOneWasConsumed) {
  // 1 2 becomes 1 1 2: the rule consumed two, so that the second 1 is looked at again.
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(coverage({1}), {{3, 1}})});
  table.lookup(1, 0, {singleSubst(coverage({2}), 0)});
  table.onlyLookup("test", 6, 0,
                   {chainContext3({covered(9)}, {covered(1), covered(2)}, {}, {{0, 0}, {1, 1}})});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {9, 1, 2, 8}),
            (Pass{true, {9, 3, 2, 8}, {1, 2, 0, 1}, {0, 0, 0, 0}}));
}

TEST(ProcessGsub3Context, MergedCountGoesBackToTheHolder) {
  // Lookup 0 makes 1 into 3 4 (the 4 has a word of 0); then 4 2 are joined by a later rule.
  LayoutTableBuilder table;
  table.lookup(2, 0, {multipleSubst(coverage({1}), {{3, 4}})});
  table.lookup(4, 0, {ligatureSubst(coverage({4}), {{{70, {2}}}})});
  table.onlyLookup("test", 6, 0,
                   {chainContext3({}, {covered(1)}, {}, {{0, 0}}),
                    chainContext3({}, {covered(4), covered(2)}, {}, {{0, 1}})});
  EXPECT_EQ(passOver(TestFont(table.str()), 0, {1, 2, 9}),
            (Pass{true, {3, 70, 9}, {2, 0, 1}, {0, 0, 0}}));
}

TEST(ProcessGsub3Context, NestedLigatureLeavesItsSkippedGlyphsBehind) {
  const TestFont font =
      contextFont({{4, ligatureSubst(coverage({1}), {{{70, {2}}}})}}, 6,
                  chainContext3({}, {covered(1)}, {}, {{0, 0}}), kIgnoreMarks, kIgnoreMarks);
  EXPECT_EQ(passOver(font, 0, {1, 50, 2, 3}), (Pass{true, {70, 50, 3}, {2, 1, 1}, {0, 1, 0}}));
}

TEST(ProcessGsub3Context, MergeBesideSkippedTakesPlacesBeforeTheNewGlyphsCameIn) {
  // The ligature 70 at 0 and the expansion of 3 at 3 give a result of five glyphs: 70, two holes,
  // 7, 8. They stand in the glyphs when the merge keeps place 1, a hole by then, not the mark.
  LayoutTableBuilder table;
  table.lookup(4, kIgnoreMarks, {ligatureSubst(coverage({1}), {{{70, {2}}}})});
  table.lookup(2, 0, {multipleSubst(coverage({3}), {{7, 8}})});
  table.onlyLookup("test", 6, kIgnoreMarks,
                   {chainContext3({}, {covered(1), covered(2), covered(3)}, {}, {{0, 0}, {3, 1}})});
  const TestFont font(table.str(), gdefTable(testClasses()));
  // Glyphs after the insertion: 70 - - 7 8 50 2 3 9; kept is place 1; [2, 4) is erased.
  EXPECT_EQ(
      passOver(font, 0, {1, 50, 2, 3, 9}),
      (Pass{true, {70, 0xFFFF, 8, 50, 2, 3, 9}, {3, 0, 0, 0, 0, 1, 1}, {0, 0, 0, 0, 0, 1, 0}}));
}

TEST(ProcessGsub3Context, NestedLigatureWithoutComponentsEndsThePassUnchanged) {
  std::string none = ligatureSubst(coverage({1}), {{{70, {}}}});
  none.back() = 0;  // CompCount 0: nothing is consumed
  const TestFont font = contextFont({{4, none}}, 6, chainContext3({}, {covered(1)}, {}, {{0, 0}}));
  EXPECT_EQ(passOver(font, 0, {2, 1, 3}), unchanged({2, 1, 3}));
}

}  // namespace
}  // namespace qxtest
