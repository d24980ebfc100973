#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

constexpr unsigned kContext = 7;
constexpr unsigned kChain = 8;

std::string of(unsigned glyph) {
  return coverage({glyph});
}

/// Lookup 0 is the contextual one; 1 moves glyph 1 by 10, 2 moves glyph 2 by 20, 3 moves glyph 1
/// by 100.
GposFont withRule(unsigned type, const std::vector<std::string>& subTables, unsigned flag = 0) {
  LayoutTableBuilder table;
  table.onlyLookup("test", type, flag, subTables);
  table.lookup(1, 0, {shift({1}, 10)});
  table.lookup(1, 0, {shift({2}, 20)});
  table.lookup(1, 0, {shift({1}, 100)});
  return GposFont(table.str());
}

std::vector<int> shiftsOf(const Glyphs& glyphs) {
  std::vector<int> shifts;
  for (const GlyphIDPosition& glyph : glyphs) shifts.push_back(glyph.getMoveX1());
  return shifts;
}

using Shifts = std::vector<int>;

TEST(ContextPos, AllNestedLookupsActAtThePosition) {
  // The places that the records name have no effect: (1, lookup 2) would move glyph 2.
  const GposFont font = withRule(kContext, {context3({of(1), of(2)}, {{1, 2}, {0, 1}, {77, 3}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{110, 0}));
}

TEST(ContextPos, AppliesOnlyIfANestedLookupDoes) {
  const GposFont font = withRule(kContext, {context3({of(1), of(2)}, {{1, 2}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{0, 0}));
}

TEST(ContextPos, NextSubTableIsTriedWhereNoNestedLookupApplied) {
  const GposFont font =
      withRule(kContext, {context3({of(1), of(2)}, {{0, 2}}), context3({of(1), of(2)}, {{0, 1}}),
                          context3({of(1), of(2)}, {{0, 3}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{10, 0}));
}

TEST(ContextPos, Format1NeverApplies) {
  const GposFont font = withRule(kContext, {context1(of(1), {{{{2}, {{0, 1}}}}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{0, 0}));
}

TEST(ContextPos, Format2MatchesClasses) {
  const std::string rules = context2(of(1), classDef(1, {1, 2}), {{}, {{{2}, {{0, 1}}}}});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(withRule(kContext, {rules}), glyphs, 0));
  Glyphs others{placed(1), placed(3)};
  EXPECT_FALSE(appliesAt(withRule(kContext, {rules}), others, 0));
}

TEST(ContextPos, RuleWithoutRecordsDoesNothingAndTheNextSubTableIsTried) {
  for (const auto& [type, empty] : {std::pair(kContext, context3({of(1), of(2)}, {})),
                                    std::pair(kChain, chainContext3({}, {of(1)}, {of(2)}, {}))}) {
    Glyphs glyphs{placed(1), placed(2)};
    EXPECT_FALSE(appliesAt(withRule(type, {empty}), glyphs, 0));
    const std::string next = type == kContext ? context3({of(1), of(2)}, {{0, 1}})
                                              : chainContext3({}, {of(1)}, {}, {{0, 1}});
    EXPECT_TRUE(appliesAt(withRule(type, {empty, next}), glyphs, 0));
  }
}

TEST(ContextPos, PlainRuleDoesNotStartAtTheLastGlyphAndAChainedOneDoes) {
  Glyphs glyphs{placed(2), placed(1)};
  EXPECT_FALSE(appliesAt(withRule(kContext, {context3({of(1)}, {{0, 1}})}), glyphs, 1));
  EXPECT_TRUE(
      appliesAt(withRule(kChain, {chainContext3({of(2)}, {of(1)}, {}, {{0, 1}})}), glyphs, 1));
}

TEST(ContextPos, AllChainedFormatsApply) {
  const std::string classes = classDef(1, {1, 2, 3});
  const std::string subTables[] = {
      chainContext1(of(1), {{{{3}, {2}, {2}, {{0, 1}}}}}),
      chainContext2(of(1), classes, classes, classes, {{}, {{{3}, {2}, {2}, {{0, 1}}}}}),
      chainContext3({of(3)}, {of(1), of(2)}, {}, {{0, 1}})};
  for (const std::string& subTable : subTables) {
    Glyphs glyphs{placed(3), placed(1), placed(2)};
    EXPECT_TRUE(appliesAt(withRule(kChain, {subTable}), glyphs, 1));
    EXPECT_EQ(shiftsOf(glyphs), (Shifts{0, 10, 0}));
  }
}

TEST(ContextPos, FlagCountsFromRightToLeftWhereTheWholeRunBeginsAbsolutely) {
  const GposFont font = withRule(kContext, {context3({of(1), of(2)}, {{0, 1}})}, kIgnoreMarks);
  struct Case {
    bool rightToLeft;
    int flagOfFirst, flagOfOthers;
    bool skips;
  };
  for (const Case& each : {Case{true, kAbsolute, 0, true}, Case{true, 0, kAbsolute, false},
                           Case{false, kAbsolute, kAbsolute, false}, Case{true, 0, 0, false}}) {
    Glyphs glyphs{placed(9, each.flagOfFirst), placed(1, each.flagOfOthers),
                  placed(50, each.flagOfOthers), placed(2, each.flagOfOthers)};
    EXPECT_EQ(appliesAt(font, glyphs, 1, each.rightToLeft), each.skips);
    // Without a mark between it matches in any case.
    glyphs.erase(glyphs.begin() + 2);
    EXPECT_TRUE(appliesAt(font, glyphs, 1, each.rightToLeft));
  }
}

TEST(ContextPos, PairsSkipWhereContextsDoNot) {
  // From left to right on absolutely placed glyphs.
  LayoutTableBuilder table;
  table.onlyLookup("test", kContext, kIgnoreMarks, {context3({of(1), of(2)}, {{0, 2}})});
  table.onlyLookup("test", 2, kIgnoreMarks, {pairPos1(of(1), 4, 0, {{{2, {-20}, {}}}})});
  table.lookup(1, 0, {shift({1}, 10)});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1, kAbsolute), placed(50, kAbsolute), placed(2, kAbsolute)};
  EXPECT_EQ(passOver(font, 0, glyphs), -1);
  EXPECT_NE(passOver(font, 1, glyphs), -1);
}

TEST(ContextPos, GlyphIdsOfRecordsWithoutAGlyphStandInTheMatch) {
  const GposFont font = withRule(kContext, {context3({of(1), of(2)}, {{0, 1}})});
  Glyphs glyphs{placed(1), GlyphIDPosition(), placed(2)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  Glyphs ignored{placed(1), placed(7), placed(2)};
  ignored[1].ignoreGlyph();
  EXPECT_FALSE(appliesAt(font, ignored, 0));
}

TEST(ContextPos, PairMovesThePositionForTheFollowingRecords) {
  LayoutTableBuilder table;
  table.onlyLookup("test", kContext, 0, {context3({of(1), of(2)}, {{0, 1}, {0, 2}, {0, 3}})});
  table.lookup(2, 0, {pairPos1(of(1), 1, 1, {{{2, {5}, {6}}}})});
  table.lookup(1, 0, {shift({2}, 20)});
  table.lookup(1, 0, {shift({1}, 100)});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1, kAbsolute), placed(2)};
  int position = 0;
  EXPECT_TRUE(applyAt(font, glyphs, position));
  EXPECT_EQ(position, 1);
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{5, 26}));
  Glyphs additive{placed(1), placed(2)};
  position = 0;
  EXPECT_TRUE(applyAt(font, additive, position));
  EXPECT_EQ(position, 0);
  EXPECT_EQ(shiftsOf(additive), (Shifts{105, 6}));
}

TEST(ContextPos, NestedContextsRunAndCount) {
  LayoutTableBuilder table;
  table.onlyLookup("test", kChain, 0, {chainContext3({}, {of(1)}, {}, {{0, 1}, {0, 2}})});
  table.lookup(
      kChain, 0,
      {chainContext3({}, {of(1)}, {}, {{0, 3}}), chainContext3({}, {of(1)}, {}, {{0, 2}})});
  table.lookup(1, 0, {shift({1}, 10)});
  table.lookup(1, 0, {shift({2}, 1000)});
  Glyphs glyphs{placed(1)};
  EXPECT_TRUE(appliesAt(GposFont(table.str()), glyphs, 0));
  // The nested lookup's first rule has no effect, its second one moves by 10; then the outer one.
  EXPECT_EQ(shiftsOf(glyphs), (Shifts{20}));
}

TEST(ContextPos, NestedLookupThatIsNotThereIsPassedBy) {
  const GposFont font = withRule(kContext, {context3({of(1), of(2)}, {{0, 99}, {0, 1}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  const GposFont none = withRule(kContext, {context3({of(1), of(2)}, {{0, 99}})});
  EXPECT_FALSE(appliesAt(none, glyphs, 0));
}

TEST(ContextPos, NestedLookupKeepsItsOwnFlag) {
  LayoutTableBuilder table;
  table.onlyLookup("test", kChain, 0, {chainContext3({}, {of(1)}, {}, {{0, 1}})});
  table.lookup(2, kIgnoreMarks, {pairPos1(of(1), 4, 0, {{{2, {-20}, {}}}})});
  Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(2)};
  EXPECT_TRUE(appliesAt(GposFont(table.str()), glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX2(), 480);
}

}  // namespace
}  // namespace qxtest::gpos
