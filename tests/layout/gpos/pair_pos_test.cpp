#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

constexpr unsigned kPair = 2;
const std::vector<Moves> kUnmoved{{0, 500, 0}, {0, 500, 0}};

GposFont pairs(const std::string& subTable, unsigned flag = 0) {
  return GposFont(kPair, flag, {subTable});
}

/// (1, 2) by -20 in the first advance, and the second one by 5, if `format2` says so.
std::string pairOneTwo(unsigned format2 = 0) {
  ValueWords second;
  if (format2 != 0) second = {5};
  return pairPos1(coverage({1}), 4, format2, {{{2, {-20}, second}}});
}

TEST(PairPos, NeedsAGlyphBehind) {
  const std::string classes = classDef(1, {1, 1});
  const std::string byClass =
      pairPos2(coverage({1}), 4, 0, classes, classes, {{{{1}, {}}}, {{{2}, {}}}});
  for (const std::string& subTable : {pairOneTwo(), byClass}) {
    Glyphs glyphs{placed(2), placed(1)};
    EXPECT_FALSE(appliesAt(pairs(subTable), glyphs, 1));
    EXPECT_EQ(movesOf(glyphs), kUnmoved);
  }
}

TEST(PairPosFormat1, AppliesTheFirstValue) {
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(pairs(pairOneTwo()), glyphs, 0));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{0, 480, 0}, {0, 500, 0}}));
}

TEST(PairPosFormat1, AppliesBothValues) {
  const std::string both = pairPos1(coverage({1}), 0x44, 0x13, {{{2, {-20, 9}, {5, 6, 9}}}});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(pairs(both), glyphs, 0));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{0, 480, 0}, {5, 495, -6}}));
}

TEST(PairPosFormat1, SecondValueAloneApplies) {
  const std::string second = pairPos1(coverage({1}), 0, 4, {{{2, {}, {-7}}}});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(pairs(second), glyphs, 0));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{0, 500, 0}, {0, 493, 0}}));
}

TEST(PairPosFormat1, FindsTheSecondGlyphInTheSetOfTheFirst) {
  std::vector<PairRecord> set;
  for (unsigned second = 2; second <= 20; second += 2)
    set.push_back({second, {static_cast<int>(second)}, {}});
  const GposFont font = pairs(pairPos1(coverage({1, 30}), 1, 0, {set, {{2, {99}, {}}}}));
  for (int second = 1; second <= 21; ++second) {
    Glyphs glyphs{placed(1), placed(second)};
    const bool found = second % 2 == 0 && second <= 20;
    EXPECT_EQ(appliesAt(font, glyphs, 0), found) << second;
    EXPECT_EQ(glyphs[0].getMoveX1(), found ? second : 0) << second;
  }
  Glyphs glyphs{placed(30), placed(2)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 99);
}

TEST(PairPosFormat1, FirstRecordOfAGlyphCountsInAnyOrder) {
  const std::string unsorted =
      pairPos1(coverage({1}), 1, 0, {{{9, {1}, {}}, {4, {2}, {}}, {9, {3}, {}}, {5, {4}, {}}}});
  const std::string twice =
      pairPos1(coverage({1}), 1, 0, {{{4, {2}, {}}, {5, {4}, {}}, {9, {1}, {}}, {9, {3}, {}}}});
  for (const std::string& subTable : {unsorted, twice}) {
    for (const auto& [second, move] : {std::pair(9, 1), std::pair(4, 2), std::pair(5, 4)}) {
      Glyphs glyphs{placed(1), placed(second)};
      EXPECT_TRUE(appliesAt(pairs(subTable), glyphs, 0));
      EXPECT_EQ(glyphs[0].getMoveX1(), move) << second;
    }
    Glyphs glyphs{placed(1), placed(6)};
    EXPECT_FALSE(appliesAt(pairs(subTable), glyphs, 0));
  }
}

TEST(PairPosFormat1, SetsAtOnePlaceServeSeveralGlyphs) {
  std::string shared = pairPos1(coverage({1, 3}), 4, 0, {{{2, {-20}, {}}}, {{2, {-30}, {}}}});
  shared.replace(12, 2, shared.substr(10, 2));
  Glyphs glyphs{placed(1), placed(2), placed(3), placed(2)};
  const GposFont font = pairs(shared);
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_TRUE(appliesAt(font, glyphs, 2));
  EXPECT_EQ(glyphs[2].getMoveX2(), 480);
}

TEST(PairPosFormat1, SetThatIsNotThereHasNoPairs) {
  std::string noSet = pairOneTwo();
  noSet.replace(10, 2, std::string(2, '\0'));
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_FALSE(appliesAt(pairs(noSet), glyphs, 0));
  const std::string tooFew = pairPos1(coverage({1, 3}), 4, 0, {{{2, {-20}, {}}}});
  glyphs = {placed(3), placed(2)};
  EXPECT_FALSE(appliesAt(pairs(tooFew), glyphs, 0));
}

TEST(PairPosFormat1, WithoutAFieldNothingAppliesNorMovesOn) {
  const GposFont font = pairs(pairPos1(coverage({1}), 0x10, 0x20, {{{2, {9}, {9}}}}));
  Glyphs glyphs{placed(1, kAbsolute), placed(2)};
  int position = 0;
  EXPECT_FALSE(applyAt(font, glyphs, position));
  EXPECT_EQ(position, 0);
}

TEST(PairPos, SkipsNothingUnlessTheFirstGlyphIsPlacedAbsolutely) {
  const GposFont font = pairs(pairOneTwo(), kIgnoreMarks);
  Glyphs glyphs{placed(1), placed(50), placed(2)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  Glyphs besideMark{placed(1), placed(50, kAbsolute), placed(2, kAbsolute)};
  EXPECT_FALSE(appliesAt(font, besideMark, 0));
  Glyphs absolute{placed(1, kAbsolute), placed(50), placed(2)};
  EXPECT_TRUE(appliesAt(font, absolute, 0));
  EXPECT_EQ(absolute[0].getMoveX2(), 480);
  EXPECT_FALSE(appliesAt(pairs(pairOneTwo()), absolute, 0));
}

TEST(PairPos, MarkIsASecondGlyphLikeAnyOther) {
  const GposFont font = pairs(pairPos1(coverage({1}), 4, 0, {{{50, {-20}, {}}}}), kIgnoreMarks);
  Glyphs glyphs{placed(1), placed(50)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
}

TEST(PairPos, RunsOffTheEndWhileSkipping) {
  const GposFont font = pairs(pairOneTwo(), kIgnoreMarks);
  Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(51)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
}

TEST(PairPosFormat1, MovesOnOnlyWhereTheFirstGlyphIsPlacedAbsolutely) {
  struct Case {
    int flag;
    unsigned format2;
    int position;
  };
  // The second value's format counts by any bit, one of a device table too.
  for (const Case& each : {Case{0, 0, 0}, Case{0, 4, 0}, Case{kAbsolute, 0, 1},
                           Case{kAbsolute, 4, 2}, Case{kAbsolute, 0x10, 2}}) {
    const GposFont font = pairs(pairOneTwo(each.format2), kIgnoreMarks);
    Glyphs glyphs{placed(1, each.flag), placed(50), placed(2)};
    if (each.flag == 0) glyphs.erase(glyphs.begin() + 1);
    int position = 0;
    EXPECT_TRUE(applyAt(font, glyphs, position));
    EXPECT_EQ(position, each.position) << each.flag << " " << each.format2;
  }
}

TEST(PairPosFormat1, StaysWhereThePairIsNotThere) {
  Glyphs glyphs{placed(1, kAbsolute), placed(3)};
  int position = 0;
  EXPECT_FALSE(applyAt(pairs(pairOneTwo(4)), glyphs, position));
  EXPECT_EQ(position, 0);
}

/// First glyphs 1 and 2 have the classes 1 and 0, 3 has none; second glyphs 11 and 12 the classes 1
/// and 0, 13 has none. Values are 10 x first class + second class + 1.
std::string byClasses(unsigned format1 = 1, unsigned format2 = 0) {
  std::vector<std::vector<ClassPair>> rows;
  for (int first = 0; first < 2; ++first) {
    rows.emplace_back();
    for (int second = 0; second < 2; ++second) {
      ClassPair pair;
      if (format1 != 0) pair.value1 = {10 * first + second + 1};
      if (format2 != 0) pair.value2 = {10 * first + second + 1};
      rows.back().push_back(pair);
    }
  }
  return pairPos2(coverage({1, 2, 3}), format1, format2, classDef(1, {1, 0}), classDef(11, {1, 0}),
                  rows);
}

TEST(PairPosFormat2, TakesTheValuesOfBothClasses) {
  const GposFont font = pairs(byClasses());
  for (const auto& [first, second, move] :
       {std::array{1, 11, 12}, std::array{1, 12, 11}, std::array{2, 11, 2}, std::array{2, 12, 1}}) {
    Glyphs glyphs{placed(first), placed(second)};
    EXPECT_TRUE(appliesAt(font, glyphs, 0));
    EXPECT_EQ(glyphs[0].getMoveX1(), move);
  }
}

TEST(PairPosFormat2, AppliesTheSecondValueToo) {
  Glyphs glyphs{placed(1), placed(11)};
  EXPECT_TRUE(appliesAt(pairs(byClasses(4, 2)), glyphs, 0));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{0, 512, 0}, {0, 500, -12}}));
}

TEST(PairPosFormat2, GlyphWithoutClassIsOfClassZeroOnlyWherePlacedAbsolutely) {
  const GposFont font = pairs(byClasses());
  for (const auto& [first, second, move] :
       {std::array{3, 11, 2}, std::array{1, 13, 11}, std::array{3, 13, 1}}) {
    Glyphs glyphs{placed(first), placed(second)};
    EXPECT_FALSE(appliesAt(font, glyphs, 0)) << first << " " << second;
    glyphs[1].setFlag(kAbsolute);
    EXPECT_FALSE(appliesAt(font, glyphs, 0)) << "the first glyph decides";
    glyphs[0].setFlag(kAbsolute);
    EXPECT_TRUE(appliesAt(font, glyphs, 0));
    EXPECT_EQ(glyphs[0].getMoveX1(), move);
  }
}

TEST(PairPosFormat2, FirstGlyphMustBeCovered) {
  Glyphs glyphs{placed(4, kAbsolute), placed(11)};
  EXPECT_FALSE(appliesAt(pairs(byClasses()), glyphs, 0));
}

TEST(PairPosFormat2, MovesOnAlsoWhereNothingWasApplied) {
  struct Case {
    unsigned format1, format2;
    bool applied;
    int position;
  };
  for (const Case& each : {Case{1, 0, true, 1}, Case{1, 1, true, 2}, Case{0x10, 0, false, 1},
                           Case{0, 0x10, false, 2}, Case{0, 0, false, 1}}) {
    Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(11)};
    int position = 0;
    EXPECT_EQ(applyAt(pairs(byClasses(each.format1, each.format2), kIgnoreMarks), glyphs, position),
              each.applied);
    EXPECT_EQ(position, each.position) << each.format1 << " " << each.format2;
    Glyphs additive{placed(1), placed(11)};
    position = 0;
    applyAt(pairs(byClasses(each.format1, each.format2)), additive, position);
    EXPECT_EQ(position, 0);
  }
}

TEST(PairPosFormat2, NextSubTableRunsAtThePlaceMovedTo) {
  LayoutTableBuilder table;
  table.lookup(9, 0,
               {extensionSubTable(2, byClasses(0, 0x10)), extensionSubTable(1, shift({11}, 5))});
  const GposFont mixed(table.str());
  Glyphs glyphs{placed(1, kAbsolute), placed(11)};
  int position = 0;
  EXPECT_TRUE(applyAt(mixed, glyphs, position));
  EXPECT_EQ(position, 1);
  EXPECT_EQ(glyphs[1].getMoveX1(), 5);
}

TEST(PairPosFormat2, ClassBeyondTheCountsAppliesNothingAndStillMovesOn) {
  const std::string classes1 = classDef(1, {2, 0});
  const std::string classes2 = classDef(11, {2, 0});
  const std::vector<std::vector<ClassPair>> rows{{{{1}, {}}, {{2}, {}}}, {{{3}, {}}, {{4}, {}}}};
  const GposFont font = pairs(pairPos2(coverage({1, 2}), 1, 0, classes1, classes2, rows));
  for (const auto& [first, second] : {std::pair(1, 12), std::pair(2, 11), std::pair(1, 11)}) {
    Glyphs glyphs{placed(first, kAbsolute), placed(50), placed(second)};
    glyphs.erase(glyphs.begin() + 1);
    int position = 0;
    EXPECT_FALSE(applyAt(font, glyphs, position)) << first << " " << second;
    EXPECT_EQ(movesOf(glyphs), kUnmoved);
    EXPECT_EQ(position, 0);  // next - 1
  }
  Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(12)};
  int position = 0;
  const GposFont skipping(kPair, kIgnoreMarks,
                          {pairPos2(coverage({1, 2}), 1, 0, classes1, classes2, rows)});
  EXPECT_FALSE(applyAt(skipping, glyphs, position));
  EXPECT_EQ(position, 1);
}

TEST(PairPosFormat2, WithoutSecondClassesNothingAppliesNorMovesOn) {
  const std::string rows = pairPos2(coverage({1}), 1, 1, classDef(1, {0}), "", {{{{1}, {2}}}});
  Glyphs glyphs{placed(1, kAbsolute), placed(11)};
  int position = 0;
  EXPECT_FALSE(applyAt(pairs(rows), glyphs, position));
  EXPECT_EQ(position, 0);
}

TEST(PairPosFormat2, WithoutFirstClassesNoGlyphHasOne) {
  const GposFont font = pairs(pairPos2(coverage({1}), 1, 0, "", classDef(11, {0}), {{{{7}, {}}}}));
  Glyphs glyphs{placed(1), placed(11)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  glyphs[0].setFlag(kAbsolute);
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 7);
}

}  // namespace
}  // namespace qxtest::gpos
