#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

constexpr int kMarkX = 30, kMarkY = 40, kOtherX = 200, kOtherY = 700;

/// 50 stands on 51 and on the base 1; 52 has a class too high, 53 no anchor.
GposFont markToMark(unsigned flag = 0) {
  return GposFont(
      6, flag,
      {markPos(coverage({50, 52, 53, 54}), coverage({1, 51}), 2,
               {{0, anchorTable(kMarkX, kMarkY)},
                {2, anchorTable(kMarkX, kMarkY)},
                {0, ""},
                {1, anchorTable(kMarkX, kMarkY)}},
               {{anchorTable(kOtherX, kOtherY), ""}, {anchorTable(kOtherX, kOtherY), ""}})});
}

TEST(MarkMarkPos, SignOfXIsOppositeToThatOfMarkToBase) {
  for (const bool rightToLeft : {false, true}) {
    Glyphs glyphs{placed(1), placed(51), placed(50)};
    EXPECT_TRUE(appliesAt(markToMark(), glyphs, 2, rightToLeft));
    EXPECT_EQ(movesOf(glyphs[2]), (Moves{kMarkX - kOtherX, kOtherX - kMarkX, kMarkY - kOtherY}));
  }
}

TEST(MarkMarkPos, PlacesFromAGlyphThatIsPlacedAbsolutely) {
  for (const bool rightToLeft : {false, true}) {
    Glyphs glyphs{placed(1), placed(51, kAbsolute), placed(50)};
    glyphs[1].setMoveX1(5);
    glyphs[1].setMoveX2(20);
    glyphs[1].setMoveY(9);
    EXPECT_TRUE(appliesAt(markToMark(), glyphs, 2, rightToLeft));
    const int x = kOtherX - 20 - kMarkX;
    EXPECT_EQ(movesOf(glyphs[2]), (Moves{x, -x, kMarkY + 9 - kOtherY}));
  }
}

TEST(MarkMarkPos, MarkAtTheStartDoesNotAttach) {
  Glyphs glyphs{placed(50), placed(51)};
  EXPECT_FALSE(appliesAt(markToMark(), glyphs, 0));
}

TEST(MarkMarkPos, BothMustBeCovered) {
  Glyphs first{placed(51), placed(55)};
  EXPECT_FALSE(appliesAt(markToMark(), first, 1));
  Glyphs second{placed(51), placed(55), placed(50)};
  EXPECT_FALSE(appliesAt(markToMark(), second, 2));
}

TEST(MarkMarkPos, GlyphsThatTheLookupSkipsArePassedOver) {
  const GposFont font = markToMark(0x0004);  // ligatures
  Glyphs glyphs{placed(51), placed(70), placed(70), placed(50)};
  EXPECT_FALSE(appliesAt(markToMark(), glyphs, 3));
  EXPECT_TRUE(appliesAt(font, glyphs, 3));
}

TEST(MarkMarkPos, SkippedBaseEndsTheWalk) {
  const GposFont font = markToMark(kIgnoreBases);
  Glyphs glyphs{placed(51), placed(1), placed(50)};
  EXPECT_FALSE(appliesAt(font, glyphs, 2));
  EXPECT_TRUE(appliesAt(markToMark(), glyphs, 2));  // the base is not skipped, and is covered
}

TEST(MarkMarkPos, OnlySkippedGlyphsBeforeIsFalse) {
  Glyphs glyphs{placed(70), placed(70), placed(50)};
  EXPECT_FALSE(appliesAt(markToMark(0x0004), glyphs, 2));
}

TEST(MarkMarkPos, SkippedByMarkAttachmentType) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 6, 0x0100,
                   {markPos(coverage({50}), coverage({51}), 1, {{0, anchorTable(1, 2)}},
                            {{anchorTable(3, 4)}})});
  const GposFont font(table.str(), gdefTable(testClasses(), classDefOfRanges({{51, 51, 1}})));
  // 55 has no attachment class and is a mark: skipped. A base without one is not.
  Glyphs glyphs{placed(51), placed(55), placed(50)};
  EXPECT_TRUE(appliesAt(font, glyphs, 2));
  Glyphs base{placed(51), placed(2), placed(50)};
  EXPECT_FALSE(appliesAt(font, base, 2));
}

TEST(MarkMarkPos, RunsMustBeEqualWhereTheHostNamesThem) {
  struct Case {
    int flag;
    bool rightToLeft;
    bool tested;
  };
  for (const Case& each :
       {Case{0, true, false}, Case{kAbsolute, true, false}, Case{kByComponent, true, false},
        Case{kAbsolute | kByComponent, true, true}, Case{kAbsolute | kByComponent, false, false}}) {
    Glyphs glyphs{placed(51, each.flag), placed(50)};
    glyphs[0].setSkipInfo(1);
    glyphs[1].setSkipInfo(2);
    EXPECT_EQ(appliesAt(markToMark(), glyphs, 1, each.rightToLeft), !each.tested) << each.flag;
    glyphs[1].setSkipInfo(1);
    EXPECT_TRUE(appliesAt(markToMark(), glyphs, 1, each.rightToLeft));
  }
}

TEST(MarkMarkPos, NeedsAnchorsOfTheClass) {
  for (const int mark : {52, 53, 54}) {
    Glyphs glyphs{placed(51), placed(mark, kOutside)};
    EXPECT_FALSE(appliesAt(markToMark(), glyphs, 1)) << mark;
    EXPECT_EQ(glyphs[1].getFlag(), kOutside);
  }
}

TEST(MarkMarkPos, IndexBeyondAnArrayIsFalse) {
  const GposFont font(6, 0,
                      {markPos(coverage({50, 52}), coverage({51, 53}), 1, {{0, anchorTable(1, 1)}},
                               {{anchorTable(2, 2)}})});
  Glyphs noMark{placed(51), placed(52)};
  EXPECT_FALSE(appliesAt(font, noMark, 1));
  Glyphs noSecond{placed(53), placed(50)};
  EXPECT_FALSE(appliesAt(font, noSecond, 1));
}

}  // namespace
}  // namespace qxtest::gpos
