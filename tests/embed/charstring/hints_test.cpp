#include "embed/charstring/hints.h"

#include <gtest/gtest.h>

#include "embed/charstring/token_text.h"

namespace QXFontService_NS::charstring {
namespace {

using QXCommonNS::QXValue;
using Group = std::vector<FS_CounterEntry>;

std::string stemText(const std::string& operands, bool includeWidths) {
  const FS_CharStringTokens tokens = tokensOf(operands);
  FS_CharStringTokens out;
  for (const FS_Stem& stem : stemsOf(tokens, 1, includeWidths)) {
    EXPECT_EQ(stem.kind, 1);
    out.push_back(stem.position);
    out.push_back(stem.width);
  }
  return textOf(out);
}

// Positions are the sum of the deltas alone: kept, and one switch away from the format's rule.
TEST(Stems, PositionsAreTheSumsOfTheDeltas) {
  EXPECT_FALSE(kStemPositionsIncludeWidths);
  EXPECT_EQ(stemText("10 20 30 40 50 -21", false), "10 20 40 40 90 -21");
  EXPECT_EQ(stemText("10 20 30 40 50 -21", true), "10 20 60 40 150 -21");
}

TEST(Stems, KeepFractions) {
  EXPECT_EQ(stemText("1.5 2.5 1.5 1", false), "1.5 2.5 3.0 1");
}

TEST(Stems, NoOperandsGiveNone) {
  EXPECT_EQ(stemText("", false), "");
}

Group groupOf(const std::vector<std::pair<int, int>>& stems) {
  Group group;
  for (const auto& [position, width] : stems)
    addToGroup(group, {0, QXValue(position), QXValue(width)});
  return group;
}

std::string groupText(const Group& group) {
  FS_CharStringTokens out;
  for (const FS_CounterEntry& entry : group) {
    out.push_back(entry.delta);
    out.push_back(entry.width);
    out.push_back(entry.edge);
  }
  return textOf(out);
}

TEST(CounterGroup, CountsFromTheEdgeBefore) {
  EXPECT_EQ(groupText(groupOf({{10, 5}, {30, 6}, {50, 7}})), "10 5 15 15 6 36 14 7 57");
}

TEST(CounterGroup, EndIsMarkedByANegativeWidth) {
  Group group = groupOf({{10, 5}, {30, 6}});
  markEnd(group);
  EXPECT_EQ(groupText(group), "10 5 15 21 -6 36");
  Group zero = groupOf({{10, 0}});
  markEnd(zero);
  EXPECT_EQ(groupText(zero), "10 0 10");
}

TEST(CounterGroup, GhostStaysUnmarkedAndEmptyIsLeftAlone) {
  Group ghost = groupOf({{10, -20}});
  markEnd(ghost);
  EXPECT_EQ(groupText(ghost), "10 -20 -10");
  Group none;
  markEnd(none);
  EXPECT_TRUE(none.empty());
}

std::string counters(int horizontal, int vertical) {
  std::vector<Group> h;
  std::vector<Group> v;
  int n = 100;
  const auto group = [&n](int count) {
    Group made;
    for (int i = 0; i < count; ++i, n += 2)
      made.push_back({QXValue(n), QXValue(n + 1), QXValue(0)});
    return made;
  };
  if (horizontal > 0) h.push_back(group(horizontal));
  if (vertical > 0) v.push_back(group(vertical));
  return textOf(counterTokens(h, v));
}

TEST(CounterTokens, TellHorizontalThenVerticalGroups) {
  EXPECT_EQ(counters(1, 0), "1 100 101 0 4 13 callothersubr");
  EXPECT_EQ(counters(0, 1), "0 1 100 101 4 13 callothersubr");
  EXPECT_EQ(counters(1, 1), "1 100 101 1 102 103 6 13 callothersubr");
}

TEST(CounterTokens, TwentyTwoValuesAreOnePieceWith12) {
  EXPECT_EQ(counters(10, 0),
            "1 100 101 102 103 104 105 106 107 108 109 110 111 112 113 114 115 116 117 118 119 0 "
            "22 12 callothersubr");
}

TEST(CounterTokens, MoreAreCutFromTheEndAndTheRearGoesFirst) {
  EXPECT_EQ(counters(11, 0),
            "101 102 103 104 105 106 107 108 109 110 111 112 113 114 115 116 117 118 119 120 121 0 "
            "22 12 callothersubr 1 100 2 13 callothersubr");
}

TEST(CounterTokens, MultipleOf22HasNoPieceWith13) {
  const std::string text = counters(21, 0);  // 44 values
  EXPECT_EQ(text.find("13 callothersubr"), std::string::npos);
  EXPECT_NE(text.find("22 12 callothersubr 1 100 101"), std::string::npos);
}

}  // namespace
}  // namespace QXFontService_NS::charstring
