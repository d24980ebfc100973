#include <gtest/gtest.h>

#include "layout/context/match_at.h"

namespace qxtest {
namespace {

constexpr unsigned kContext = 5;

Match match(const std::string& subTable, const Ids& ids, int position, unsigned flag = 0) {
  return matchAt(kContext, subTable, ids, position, flag);
}

// Format 1.

TEST(ContextFormat1, RuleThatFitsGivesItsRecordsAndAnswersZero) {
  const std::string rules = context1(coverage({1}), {{{{2, 3}, {{0, 7}}}, {{2}, {{1, 8}}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0), (Match{0, {{0, 7}}, {}}));
  EXPECT_EQ(match(rules, {1, 2, 4}, 0), (Match{0, {{1, 8}}, {}}));
  EXPECT_EQ(match(rules, {1, 2}, 0), (Match{0, {{1, 8}}, {}}));
}

TEST(ContextFormat1, PassesOverNothing) {
  const std::string rules = context1(coverage({1}), {{{{2}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 50, 2}, 0, kIgnoreMarks), Match{});
}

TEST(ContextFormat1, NeedsAFollowingGlyphAndCoverage) {
  const std::string rules = context1(coverage({1}), {{{{}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 9}, 0), (Match{0, {{0, 7}}, {}}));
  EXPECT_EQ(match(rules, {9, 1}, 1), Match{});
  EXPECT_EQ(match(rules, {9, 9}, 0), Match{});
}

TEST(ContextFormat1, SetOfOffsetZeroIsEmpty) {
  const std::string rules = context1(coverage({1, 2}), {{}, {{{}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 9}, 0), Match{});
  EXPECT_EQ(match(rules, {2, 9}, 0), (Match{0, {{0, 7}}, {}}));
}

// Format 2: classes 1 for 1 and 11, 2 for 2, 3 for 3, none for 4 to 9.

const std::string kClasses = classDefOfRanges({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {11, 11, 1}});

TEST(ContextFormat2, MatchesClasses) {
  const std::string rules =
      context2(coverage({1, 11}), kClasses, {{}, {{{2, 3}, {{0, 7}, {1, 8}}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0), (Match{2, {{0, 7}, {1, 8}}, {}}));
  EXPECT_EQ(match(rules, {9, 11, 2, 3}, 1), (Match{2, {{0, 7}, {1, 8}}, {}}));
  EXPECT_EQ(match(rules, {1, 2, 2}, 0).answer, 0);
  EXPECT_EQ(match(rules, {1, 2}, 0).answer, 0);
}

TEST(ContextFormat2, UnlistedGlyphIsNotClassZero) {
  const std::string rules =
      context2(coverage({1, 4}), kClasses, {{{{2}, {{0, 7}}}}, {{{0}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 9}, 0), Match{});  // the second glyph has no class
  EXPECT_EQ(match(rules, {4, 2}, 0), Match{});  // the first has none
}

TEST(ContextFormat2, NeedsAFollowingGlyphCoverageAndClasses) {
  const std::string rules = context2(coverage({1}), kClasses, {{}, {{{2}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {2, 1}, 1), Match{});
  EXPECT_EQ(match(rules, {11, 2}, 0), Match{});
  EXPECT_EQ(match(context2(coverage({1}), "", {{}, {{{2}, {{0, 7}}}}}), {1, 2}, 0), Match{});
  EXPECT_EQ(match(context2(coverage({1}), kClasses, {}), {1, 2}, 0), Match{});
}

TEST(ContextFormat2, RuleOfOneGlyphNeverMatches) {
  const std::string rules = context2(coverage({1}), kClasses, {{}, {{{}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 2}, 0), Match{});
}

TEST(ContextFormat2, FirstRuleOfTheSetCounts) {
  const std::string rules =
      context2(coverage({1}), kClasses,
               {{}, {{{3}, {{0, 1}}}, {{2, 3}, {{0, 2}}}, {{2}, {{0, 3}}}, {{2, 2}, {{0, 4}}}}});
  EXPECT_EQ(match(rules, {1, 2, 3}, 0).records, (LookupRecords{{0, 2}}));
  EXPECT_EQ(match(rules, {1, 2, 2}, 0).records, (LookupRecords{{0, 3}}));
  EXPECT_EQ(match(rules, {1, 3}, 0).records, (LookupRecords{{0, 1}}));
}

TEST(ContextFormat2, RuleWithoutRecordsEndsTheSetWithZero) {
  const std::string rules = context2(coverage({1}), kClasses, {{}, {{{2}, {}}, {{2}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 2}, 0), Match{});
}

TEST(ContextFormat2, RecordsWhatItPassesOverBeforeTheFirstComparison) {
  const std::string rules = context2(coverage({1}), kClasses, {{}, {{{2, 3}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 50, 51, 2, 52, 3}, 0, kIgnoreMarks), (Match{1, {{0, 7}}, {1, 2}}));
}

TEST(ContextFormat2, RecordsNothingInLaterRules) {
  const std::string rules =
      context2(coverage({1}), kClasses, {{}, {{{2, 2}, {{0, 1}}}, {{2, 3}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 50, 2, 51, 3}, 0, kIgnoreMarks), (Match{1, {{0, 7}}, {1}}));
}

TEST(ContextFormat2, FirstGlyphIsNotTestedAgainstTheFlag) {
  const std::string classes = classDefOfRanges({{2, 2, 2}, {50, 50, 1}});
  const std::string rules = context2(coverage({50}), classes, {{}, {{{2}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {50, 2}, 0, kIgnoreMarks).answer, 1);
}

TEST(ContextFormat2, PassingOverTheEndFails) {
  const std::string rules = context2(coverage({1}), kClasses, {{}, {{{2, 3}, {{0, 7}}}}});
  EXPECT_EQ(match(rules, {1, 50}, 0, kIgnoreMarks).answer, 0);
  EXPECT_EQ(match(rules, {1, 2, 50}, 0, kIgnoreMarks).answer, 0);
}

// Format 3.

TEST(ContextFormat3, MatchesCoverages) {
  const std::string rule = context3({coverage({1}), coverage({2, 3})}, {{0, 7}, {1, 8}});
  EXPECT_EQ(match(rule, {1, 3}, 0), (Match{2, {{0, 7}, {1, 8}}, {}}));
  EXPECT_EQ(match(rule, {1, 4}, 0), Match{});
  EXPECT_EQ(match(rule, {2, 3}, 0), Match{});
}

TEST(ContextFormat3, NeedsAFollowingGlyphEvenForOneCoverage) {
  const std::string rule = context3({coverage({1})}, {{0, 7}});
  EXPECT_EQ(match(rule, {1}, 0), Match{});
  EXPECT_EQ(match(rule, {1, 9}, 0).answer, 1);
}

TEST(ContextFormat3, WithoutRecordsAnswersMinusOne) {
  EXPECT_EQ(match(context3({coverage({1})}, {}), {1, 9}, 0), (Match{-1, {}, {}}));
}

TEST(ContextFormat3, WithoutCoveragesMatchesAnywhereButLast) {
  const std::string rule = context3({}, {{0, 7}});
  EXPECT_EQ(match(rule, {9, 9}, 0).answer, 1);
  EXPECT_EQ(match(rule, {9, 9}, 1).answer, 0);
}

TEST(ContextFormat3, PassesOverAndRecordsNothing) {
  const std::string rule = context3({coverage({50}), coverage({2})}, {{1, 7}});
  EXPECT_EQ(match(rule, {50, 51, 2}, 0, kIgnoreMarks), (Match{1, {{1, 7}}, {}}));
  EXPECT_EQ(match(rule, {50, 51, 2}, 0), Match{});
  EXPECT_EQ(match(rule, {50, 51}, 0, kIgnoreMarks), Match{});
}

TEST(ContextFormat3, NullCoverageCoversNothing) {
  EXPECT_EQ(match(context3({coverage({1}), ""}, {{0, 7}}), {1, 2}, 0), Match{});
  EXPECT_EQ(match(context3({"", coverage({2})}, {{0, 7}}), {1, 2}, 0), Match{});
}

}  // namespace
}  // namespace qxtest
