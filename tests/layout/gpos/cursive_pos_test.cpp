#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

/// 1 leaves at (90, 40), 2 is entered at (10, 15) and left at (80, 5); 3 is only entered.
GposFont cursive(unsigned flag = 0) {
  return GposFont(3, flag,
                  {cursivePos(coverage({1, 2, 3}), {{"", anchorTable(90, 40)},
                                                    {anchorTable(10, 15), anchorTable(80, 5)},
                                                    {anchorTable(20, 25), ""}})});
}

// dx = entry x - width of the next glyph - exit x, and dy = exit y - entry y.
constexpr int kDx = 10 - 500 - 90;
constexpr int kDy = 40 - 15;

TEST(CursivePos, FirstGlyphMovesTowardsTheNextInBothDirections) {
  for (const bool rightToLeft : {false, true}) {
    Glyphs glyphs{placed(1), placed(2)};
    EXPECT_TRUE(appliesAt(cursive(), glyphs, 0, rightToLeft));
    EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{kDx, 500 - kDx, kDy}, {0, 500, 0}}));
  }
}

TEST(CursivePos, SetsTheMovesOfAGlyphThatIsPlacedAbsolutely) {
  Glyphs glyphs{placed(1, kAbsolute), placed(2)};
  glyphs[0].setMoveY(99);
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0, true));
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0, true));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{kDx, 500 - kDx, kDy}));
}

TEST(CursivePos, AddsUpElsewhere) {
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0));
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveY(), 2 * kDy);
}

TEST(CursivePos, NeedsExitEntryAndANextGlyph) {
  for (const auto& [first, second] :
       {std::pair(3, 2), std::pair(1, 1), std::pair(4, 2), std::pair(1, 4)}) {
    Glyphs glyphs{placed(first, kOutside), placed(second)};
    EXPECT_FALSE(appliesAt(cursive(), glyphs, 0)) << first << " " << second;
    EXPECT_EQ(glyphs[0].getFlag(), kOutside);
  }
  Glyphs last{placed(2), placed(1)};
  EXPECT_FALSE(appliesAt(cursive(), last, 1));
}

TEST(CursivePos, PassesOverGlyphsWithoutWidthAndNoOthers) {
  Glyphs glyphs{placed(1), placed(50), placed(7, 0, 0), placed(2)};
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), kDx);
  // A mark with a width stands in the way, whatever the lookup's flag.
  Glyphs wideMark{placed(1), placed(50, 0, 100), placed(2)};
  EXPECT_FALSE(appliesAt(cursive(kIgnoreMarks), wideMark, 0));
}

TEST(CursivePos, PassesOverWhatTheLookupSkipsWherePlacedAbsolutely) {
  Glyphs glyphs{placed(1, kAbsolute), placed(50, 0, 100), placed(2)};
  EXPECT_FALSE(appliesAt(cursive(), glyphs, 0));
  EXPECT_TRUE(appliesAt(cursive(kIgnoreMarks), glyphs, 0));
  Glyphs noWidth{placed(1, kAbsolute), placed(7, 0, 0), placed(2)};
  EXPECT_FALSE(appliesAt(cursive(kIgnoreMarks), noWidth, 0));
}

TEST(CursivePos, OnlyPassedGlyphsBehindIsNoJoin) {
  Glyphs glyphs{placed(1), placed(50), placed(51)};
  EXPECT_FALSE(appliesAt(cursive(), glyphs, 0));
  glyphs[0].setFlag(kAbsolute);
  EXPECT_FALSE(appliesAt(cursive(kIgnoreMarks), glyphs, 0));
}

TEST(CursivePos, EntryOfAGlyphWithoutWidthIsTakenWherePlacedAbsolutely) {
  Glyphs glyphs{placed(1, kAbsolute), placed(2, 0, 0)};
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 10 - 90);
}

// The chained form.

TEST(CursivePosChained, SetsTheFirstGlyphFromTheNextOne) {
  Glyphs glyphs{placed(1, kOutside), placed(2, kAbsolute)};
  glyphs[0].setMoveX1(7);
  glyphs[0].setMoveY(8);
  glyphs[1].setMoveY(100);
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 0, true));
  // The advance is not compensated, and the position still counts as one from outside.
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{kDx, 500, 100 - 15 + 40}));
  EXPECT_EQ(glyphs[0].getFlag(), kOutside);
  EXPECT_EQ(movesOf(glyphs[1]), (Moves{0, 500, 100}));
}

TEST(CursivePosChained, NeedsRightToLeftAndTheBitOnTheNextGlyph) {
  Glyphs leftToRight{placed(1), placed(2, kAbsolute)};
  leftToRight[1].setMoveY(100);
  EXPECT_TRUE(appliesAt(cursive(), leftToRight, 0, false));
  EXPECT_EQ(movesOf(leftToRight[0]), (Moves{kDx, 500 - kDx, kDy}));
  Glyphs bitOnFirst{placed(1, kAbsolute), placed(2)};
  bitOnFirst[1].setMoveY(100);
  EXPECT_TRUE(appliesAt(cursive(), bitOnFirst, 0, true));
  EXPECT_EQ(movesOf(bitOnFirst[0]), (Moves{kDx, 500 - kDx, kDy}));
}

GlyphIDPosition joined(int id, UDecompositionType type, int flag = 0, int width = -1) {
  GlyphIDPosition glyph = placed(id, flag, width);
  glyph.setDecompositionType(type);
  return glyph;
}

TEST(CursivePosChained, LiftsTheGlyphsJoinedBefore) {
  Glyphs glyphs{joined(4, U_DT_MEDIAL),       joined(4, U_DT_FINAL),  joined(4, U_DT_INITIAL),
                joined(50, U_DT_FINAL, 0, 0), joined(4, U_DT_MEDIAL), placed(1),
                placed(2, kAbsolute)};
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 5, true));
  std::vector<int> lifted;
  for (const GlyphIDPosition& glyph : glyphs) lifted.push_back(glyph.getMoveY());
  // A glyph without width is passed before its type could end the walk, and is not lifted.
  EXPECT_EQ(lifted, (std::vector<int>{0, 0, kDy, 0, kDy, kDy, 0}));
}

TEST(CursivePosChained, FinalAndIsolatedFormsEndTheWalk) {
  for (const UDecompositionType type : {U_DT_FINAL, U_DT_ISOLATED}) {
    Glyphs glyphs{joined(4, U_DT_MEDIAL), joined(4, type), placed(1), placed(2, kAbsolute)};
    EXPECT_TRUE(appliesAt(cursive(), glyphs, 2, true));
    EXPECT_EQ(glyphs[0].getMoveY(), 0);
    EXPECT_EQ(glyphs[1].getMoveY(), 0);
  }
}

TEST(CursivePosChained, WalkGoesToTheFirstGlyph) {
  Glyphs glyphs{joined(4, U_DT_MEDIAL), joined(4, U_DT_NONE), placed(1), placed(2, kAbsolute)};
  EXPECT_TRUE(appliesAt(cursive(), glyphs, 2, true));
  EXPECT_EQ(glyphs[0].getMoveY(), kDy);
  EXPECT_EQ(glyphs[1].getMoveY(), kDy);
}

TEST(CursivePosChained, ShiftsGlyphsWithoutWidthBetween) {
  Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(51, 0, 30), placed(2, kAbsolute)};
  EXPECT_TRUE(appliesAt(cursive(kIgnoreMarks), glyphs, 0, true));
  EXPECT_EQ(movesOf(glyphs[1]), (Moves{kDx, -kDx, 0}));
  EXPECT_EQ(movesOf(glyphs[2]), (Moves{0, 30, 0}));
}

TEST(CursivePos, RecordBeyondTheCountHasNoAnchors) {
  const GposFont font(3, 0, {cursivePos(coverage({1, 2}), {{"", anchorTable(1, 1)}})});
  Glyphs glyphs{placed(1), placed(2)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
}

TEST(CursivePos, NeverMovesThePosition) {
  Glyphs glyphs{placed(1, kAbsolute), placed(2, kAbsolute)};
  int position = 0;
  EXPECT_TRUE(applyAt(cursive(), glyphs, position, true));
  EXPECT_EQ(position, 0);
}

}  // namespace
}  // namespace qxtest::gpos
