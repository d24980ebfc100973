#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

constexpr int kMarkX = 30, kMarkY = 40;

/// A ligature 70 of three components, at (100, 710), (200, 720), (300, 730); the third class has
/// anchors in the second component only. 71 has no components.
GposFont markToLigature(unsigned flag = 0) {
  const auto component = [](int number, bool last) {
    return AnchorRow{anchorTable(100 * number, 700 + 10 * number),
                     last ? anchorTable(7, 8) : std::string()};
  };
  return GposFont(5, flag,
                  {markLigPos(coverage({50, 51, 52, 53}), coverage({1, 70, 71}), 2,
                              {{0, anchorTable(kMarkX, kMarkY)},
                               {1, anchorTable(kMarkX, kMarkY)},
                               {2, anchorTable(kMarkX, kMarkY)},
                               {0, ""}},
                              {{component(9, false)},
                               {component(1, false), component(2, true), component(3, false)},
                               {}})});
}

TEST(MarkLigPos, PlacesTheMarkByDirectionAndTheFlagBeforeIt) {
  struct Case {
    bool direct;
    bool rightToLeft;
    int x, y;
  };
  const Case cases[] = {
      {true, true, 200 + 11 - kMarkX, kMarkY - 720},
      {true, false, 200 - 480 - kMarkX, 720 - kMarkY},
      {false, true, 100 - kMarkX, kMarkY - 710},
      {false, false, 100 - 480 - kMarkX, 710 - kMarkY},
  };
  for (const Case& each : cases) {
    Glyphs glyphs{placed(70, each.direct ? kByComponent : 0), placed(50)};
    glyphs[0].setMoveX1(11);
    glyphs[0].setMoveX2(480);
    glyphs[0].setMoveY(99);
    glyphs[1].setSkipInfo(2);
    EXPECT_TRUE(appliesAt(markToLigature(), glyphs, 1, each.rightToLeft));
    EXPECT_EQ(movesOf(glyphs[1]), (Moves{each.x, -each.x, each.y}))
        << each.direct << each.rightToLeft;
  }
}

TEST(MarkLigPos, WithoutTheBitTheComponentIsAlwaysTheFirst) {
  for (const int named : {0, 1, 2, 3}) {
    Glyphs glyphs{placed(70), placed(50, kByComponent)};
    glyphs[1].setSkipInfo(named);
    EXPECT_TRUE(appliesAt(markToLigature(), glyphs, 1, true));
    EXPECT_EQ(glyphs[1].getMoveX1(), 100 - kMarkX);
  }
}

TEST(MarkLigPos, WithTheBitTheComponentIsNamedOrTheLast) {
  for (const auto& [named, component] : {std::pair(-1, 3), std::pair(0, 3), std::pair(1, 1),
                                         std::pair(2, 2), std::pair(3, 3), std::pair(4, 3)}) {
    Glyphs glyphs{placed(70, kByComponent), placed(50)};
    glyphs[1].setSkipInfo(named);
    EXPECT_TRUE(appliesAt(markToLigature(), glyphs, 1, true));
    EXPECT_EQ(glyphs[1].getMoveX1(), 100 * component - kMarkX) << named;
  }
}

TEST(MarkLigPos, BitIsReadFromTheGlyphRightBeforeTheMark) {
  Glyphs onLigature{placed(70, kByComponent), placed(50), placed(50)};
  onLigature[2].setSkipInfo(2);
  // The mark between is no ligature, and is not skipped.
  EXPECT_FALSE(appliesAt(markToLigature(), onLigature, 2, true));
  Glyphs onMark{placed(70), placed(50, kByComponent), placed(50)};
  onMark[2].setSkipInfo(2);
  EXPECT_TRUE(appliesAt(markToLigature(), onMark, 2, true));
  EXPECT_EQ(onMark[2].getMoveX1(), 200 - kMarkX);
}

TEST(MarkLigPos, WithTheBitTheFirstGlyphThatIsNoMarkIsTheLigature) {
  // The lookup would skip the ligature, and not the mark.
  const GposFont font = markToLigature(0x0004);
  Glyphs glyphs{placed(1), placed(70), placed(51, kByComponent), placed(50)};
  EXPECT_TRUE(appliesAt(font, glyphs, 3, true));
  EXPECT_EQ(glyphs[3].getMoveX1(), 300 - kMarkX);
  Glyphs unknown{placed(70), placed(80, kByComponent), placed(50)};
  EXPECT_FALSE(appliesAt(font, unknown, 2));
}

TEST(MarkLigPos, WithoutTheBitTheFirstGlyphNotSkippedIsTheLigature) {
  Glyphs glyphs{placed(1), placed(70), placed(51), placed(50)};
  EXPECT_FALSE(appliesAt(markToLigature(), glyphs, 3, true));
  EXPECT_TRUE(appliesAt(markToLigature(kIgnoreMarks), glyphs, 3, true));
  EXPECT_EQ(glyphs[3].getMoveX1(), 100 - kMarkX);
  // Ligatures and marks skipped: the base is taken, which the coverage holds.
  Glyphs past{placed(1), placed(70), placed(51), placed(50)};
  EXPECT_TRUE(appliesAt(markToLigature(kIgnoreMarks | 0x0004), past, 3, true));
  EXPECT_EQ(past[3].getMoveX1(), 900 - kMarkX);
}

TEST(MarkLigPos, WidthHasNoPartInIt) {
  Glyphs glyphs{placed(70), placed(2, 0, 0), placed(50)};
  EXPECT_FALSE(appliesAt(markToLigature(), glyphs, 2));
}

TEST(MarkLigPos, MarkWithNothingBeforeItDoesNotAttach) {
  Glyphs first{placed(50), placed(70)};
  EXPECT_FALSE(appliesAt(markToLigature(), first, 0));
  Glyphs onlyMarks{placed(51), placed(50)};
  EXPECT_FALSE(appliesAt(markToLigature(kIgnoreMarks), onlyMarks, 1));
  onlyMarks[0].setFlag(kByComponent);
  EXPECT_FALSE(appliesAt(markToLigature(), onlyMarks, 1));
}

TEST(MarkLigPos, BothMustBeCovered) {
  Glyphs otherMark{placed(70), placed(55)};
  EXPECT_FALSE(appliesAt(markToLigature(), otherMark, 1));
  Glyphs otherLigature{placed(72), placed(50)};
  EXPECT_FALSE(appliesAt(markToLigature(), otherLigature, 1));
}

TEST(MarkLigPos, NeedsAnchorsOfTheClass) {
  Glyphs glyphs{placed(70, kByComponent), placed(51)};
  glyphs[1].setSkipInfo(2);
  EXPECT_TRUE(appliesAt(markToLigature(), glyphs, 1));
  glyphs[1].setSkipInfo(1);
  EXPECT_FALSE(appliesAt(markToLigature(), glyphs, 1));
  for (const int mark : {52, 53}) {  // class too high, no mark anchor
    Glyphs without{placed(70), placed(mark)};
    EXPECT_FALSE(appliesAt(markToLigature(), without, 1)) << mark;
  }
}

TEST(MarkLigPos, LigatureWithoutComponentsIsFalse) {
  for (const int flag : {0, kByComponent}) {
    Glyphs glyphs{placed(71, flag), placed(50)};
    EXPECT_FALSE(appliesAt(markToLigature(), glyphs, 1));
  }
}

TEST(MarkLigPos, IndexBeyondAnArrayIsFalse) {
  const GposFont font(5, 0,
                      {markLigPos(coverage({50, 51}), coverage({70, 71}), 1,
                                  {{0, anchorTable(1, 1)}}, {{{anchorTable(2, 2)}}})});
  Glyphs noMark{placed(70), placed(51)};
  EXPECT_FALSE(appliesAt(font, noMark, 1));
  Glyphs noLigature{placed(71), placed(50)};
  EXPECT_FALSE(appliesAt(font, noLigature, 1));
}

}  // namespace
}  // namespace qxtest::gpos
