#include <gtest/gtest.h>

#include "layout/context/match_at.h"

namespace qxtest {
namespace {

constexpr unsigned kChainContext = 6;

Match match(const std::string& subTable, const Ids& ids, int position, unsigned flag = 0) {
  return matchAt(kChainContext, subTable, ids, position, flag);
}

std::string chain1(const std::vector<ChainRule>& rules) {
  return chainContext1(coverage({1}), {rules});
}

// Formats 1 and 2.

TEST(ChainContextFormat1, MatchesGlyphsAround) {
  const std::string rules = chain1({{{5, 4}, {2}, {}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {4, 5, 1, 2}, 2), (Match{1, {{0, 7}}, {}}));
  EXPECT_EQ(match(rules, {5, 4, 1, 2}, 2).answer, 0);  // the nearest stands first
  EXPECT_EQ(match(rules, {5, 1, 2}, 1).answer, 0);
  EXPECT_EQ(match(rules, {4, 5, 1, 3}, 2).answer, 0);
  EXPECT_EQ(match(rules, {4, 5, 1}, 2).answer, 0);
}

TEST(ChainContextFormat1, LookaheadBeginsBehindTheFirstGlyphAndOverlapsTheInput) {
  const std::string rules = chain1({{{}, {2, 3}, {2}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0).answer, 1);
  EXPECT_EQ(match(chain1({{{}, {2, 3}, {4}, {{0, 7}}}}), {1, 2, 3, 4}, 0).answer, 0);
}

TEST(ChainContextFormat1, LookaheadOfOneGlyphRulesIsTheStandards) {
  const std::string rules = chain1({{{}, {}, {2, 3}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0).answer, 1);
  EXPECT_EQ(match(rules, {1, 2}, 0).answer, 0);
}

TEST(ChainContextFormat1, MayStartAtTheLastGlyph) {
  EXPECT_EQ(match(chain1({{{2}, {}, {}, {{0, 7}}}}), {2, 1}, 1).answer, 1);
}

TEST(ChainContextFormat1, FirstRuleThatHoldsCountsEvenWithoutRecords) {
  EXPECT_EQ(
      match(chain1({{{}, {3}, {}, {{0, 1}}}, {{}, {2}, {}, {{0, 2}}}, {{}, {2}, {}, {{0, 3}}}}),
            {1, 2}, 0),
      (Match{1, {{0, 2}}, {}}));
  EXPECT_EQ(match(chain1({{{}, {2}, {}, {}}, {{}, {2}, {}, {{0, 3}}}}), {1, 2}, 0), Match{});
}

TEST(ChainContextFormat1, PassesOverSkippedGlyphsOnAllSides) {
  const std::string rules = chain1({{{4, 3}, {2}, {2, 5}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {3, 50, 4, 50, 1, 50, 51, 2, 52, 5}, 4, kIgnoreMarks),
            (Match{1, {{0, 7}}, {5, 6}}));
}

TEST(ChainContextFormat1, RecordsUntilTheFirstInputComparisonOfAnyRule) {
  const std::string rules = chain1({{{}, {3}, {}, {{0, 1}}}, {{}, {2, 5}, {}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {1, 50, 2, 51, 5}, 0, kIgnoreMarks), (Match{1, {{0, 7}}, {1}}));
}

TEST(ChainContextFormat1, BacktrackAndLookaheadComparisonsDoNotEndRecording) {
  // The first rule compares no input, its backtrack fails; the second still records.
  const std::string rules = chain1({{{9}, {}, {9}, {{0, 1}}}, {{}, {2}, {}, {{0, 7}}}});
  EXPECT_EQ(match(rules, {4, 1, 50, 2}, 1, kIgnoreMarks), (Match{1, {{0, 7}}, {2}}));
}

TEST(ChainContextFormat1, RecordsEvenWhereTheRuleFails) {
  EXPECT_EQ(match(chain1({{{}, {3}, {}, {{0, 7}}}}), {1, 50, 2}, 0, kIgnoreMarks),
            (Match{0, {}, {1}}));
}

TEST(ChainContextFormat1, PassingOverEitherEndEqualsNoValue) {
  EXPECT_EQ(match(chain1({{{}, {0xFFFF}, {}, {{0, 7}}}}), {1, 50}, 0, kIgnoreMarks).answer, 0);
  EXPECT_EQ(match(chain1({{{0xFFFF}, {}, {}, {{0, 7}}}}), {50, 1}, 1, kIgnoreMarks).answer, 0);
  EXPECT_EQ(match(chain1({{{}, {}, {0xFFFF}, {{0, 7}}}}), {1, 50}, 0, kIgnoreMarks).answer, 0);
}

TEST(ChainContextFormat1, SetIsThatOfTheCoverageIndex) {
  const std::string rules = chainContext1(coverage({1, 2, 3}), {{}, {{{}, {}, {}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1}, 0).answer, 0);
  EXPECT_EQ(match(rules, {2}, 0).answer, 1);
  EXPECT_EQ(match(rules, {3}, 0).answer, 0);  // beyond the sets
  EXPECT_EQ(match(rules, {4}, 0).answer, 0);
}

const std::string kBacktrack = classDefOfRanges({{4, 5, 4}});
const std::string kInput = classDefOfRanges({{1, 1, 1}, {2, 3, 2}});
const std::string kLookahead = classDefOfRanges({{2, 2, 8}, {6, 7, 6}});

TEST(ChainContextFormat2, ComparesTheThreeClassTables) {
  const std::string rules = chainContext2(coverage({1}), kBacktrack, kInput, kLookahead,
                                          {{}, {{{4, 4}, {}, {6}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {4, 5, 1, 7}, 2), (Match{1, {{0, 7}}, {}}));
  EXPECT_EQ(match(rules, {4, 5, 1, 5}, 2).answer, 0);
  EXPECT_EQ(match(rules, {4, 9, 1, 7}, 2).answer, 0);
}

TEST(ChainContextFormat2, LookaheadIsMatchedAgainstTheSecondInputGlyph) {
  const std::string rules =
      chainContext2(coverage({1}), kBacktrack, kInput, classDefOfRanges({{2, 2, 8}}),
                    {{}, {{{}, {2, 2}, {8}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0).answer, 1);
  EXPECT_EQ(match(rules, {1, 3, 2}, 0).answer, 0);
}

TEST(ChainContextFormat2, UnlistedFirstGlyphMatchesNothing) {
  const std::string rules =
      chainContext2(coverage({9}), kBacktrack, kInput, kLookahead, {{{{}, {}, {}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {9}, 0).answer, 0);
}

TEST(ChainContextFormat2, WithoutClassTablesComparesGlyphs) {
  std::vector<std::vector<ChainRule>> sets(3);
  sets[2] = {{{4}, {5}, {5, 6}, {{0, 7}}}};  // the set of glyph 2
  const std::string rules = chainContext2(coverage({2, 3}), "", "", "", sets);
  EXPECT_EQ(match(rules, {4, 2, 5, 6}, 1).answer, 1);
  EXPECT_EQ(match(rules, {4, 3, 5, 6}, 1).answer, 0);  // no set of glyph 3
}

// Format 3.

TEST(ChainContextFormat3, MatchesCoveragesAround) {
  const std::string rule = chainContext3({coverage({5}), coverage({4})},
                                         {coverage({1}), coverage({2})}, {coverage({3})}, {{0, 7}});
  EXPECT_EQ(match(rule, {4, 5, 1, 2, 3}, 2), (Match{1, {{0, 7}}, {}}));
  EXPECT_EQ(match(rule, {5, 4, 1, 2, 3}, 2), Match{});
  EXPECT_EQ(match(rule, {4, 5, 1, 2, 9}, 2), Match{});
  EXPECT_EQ(match(rule, {4, 5, 1, 9, 3}, 2), Match{});
}

TEST(ChainContextFormat3, CountsRawPlacesBeforeItLooks) {
  const std::string rule =
      chainContext3({coverage({4})}, {coverage({1})}, {coverage({3})}, {{0, 7}});
  EXPECT_EQ(match(rule, {1, 3}, 0).answer, 0);
  EXPECT_EQ(match(rule, {4, 1}, 1).answer, 0);
  EXPECT_EQ(match(rule, {4, 1, 3}, 1).answer, 1);
}

TEST(ChainContextFormat3, LookaheadBeginsBehindTheInputAndWhatItPassedOver) {
  const std::string rule =
      chainContext3({coverage({4})}, {coverage({1}), coverage({2})}, {coverage({3})}, {{1, 7}});
  EXPECT_EQ(match(rule, {4, 50, 1, 51, 2, 52, 3}, 2, kIgnoreMarks), (Match{1, {{1, 7}}, {}}));
  EXPECT_EQ(match(rule, {4, 50, 1, 51, 2, 52}, 2, kIgnoreMarks), Match{});
}

TEST(ChainContextFormat3, WithoutInputLooksAheadFromThePositionItself) {
  const std::string rule = chainContext3({}, {}, {coverage({3})}, {{0, 7}});
  EXPECT_EQ(match(rule, {3}, 0).answer, 1);
  EXPECT_EQ(match(rule, {9, 3}, 0).answer, 0);
}

TEST(ChainContextFormat3, WithoutRecordsAnswersMinusOne) {
  EXPECT_EQ(match(chainContext3({}, {coverage({1})}, {}, {}), {1}, 0), (Match{-1, {}, {}}));
}

TEST(ChainContextFormat3, MayStartAtTheLastGlyph) {
  EXPECT_EQ(match(chainContext3({}, {coverage({1})}, {}, {{0, 7}}), {9, 1}, 1).answer, 1);
}

TEST(ChainContextFormat3, BacktrackFailsAtTheStart) {
  const std::string rule = chainContext3({coverage({4})}, {coverage({1})}, {}, {{0, 7}});
  EXPECT_EQ(match(rule, {50, 1}, 1, kIgnoreMarks).answer, 0);
}

}  // namespace
}  // namespace qxtest
