#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

// Anchors: of the mark 50 (class 0) and 51 (class 1), and of the base 1 for both classes.
constexpr int kMarkX = 30, kMarkY = 40, kBaseX = 200, kBaseY = 700;

std::string subTable() {
  return markPos(coverage({50, 51, 52, 53}), coverage({1, 60, 70, 90}), 2,
                 {{0, anchorTable(kMarkX, kMarkY)},
                  {1, anchorTable(kMarkX, kMarkY)},
                  {2, anchorTable(kMarkX, kMarkY)},
                  {0, ""}},
                 {{anchorTable(kBaseX, kBaseY), ""},
                  {anchorTable(kBaseX, kBaseY), ""},
                  {anchorTable(kBaseX, kBaseY), ""},
                  {anchorTable(kBaseX, kBaseY), ""}});
}

GposFont markToBase(unsigned flag = 0) {
  return GposFont(4, flag, {subTable()});
}

TEST(MarkBasePos, PlacesTheMarkByDirectionAndTheFlagOfTheBase) {
  struct Case {
    bool absolute;
    bool rightToLeft;
    int x, y;
  };
  // Base: moveX1 11, moveX2 480, moveY 9; a mark between: moveX1 3, moveX2 -2. Their sum is 492.
  constexpr int kSum = 11 + 480 + 3 - 2;
  const Case cases[] = {
      {true, false, 11 - kMarkX - kSum + kBaseX, kMarkY - kBaseY},
      {true, true, kBaseX - 480 - kMarkX + kSum, kMarkY + 9 - kBaseY},
      {false, false, kBaseX - kMarkX - 500, kMarkY - kBaseY},
      {false, true, kBaseX - kMarkX, kMarkY - kBaseY},
  };
  for (const Case& each : cases) {
    Glyphs glyphs{placed(1, each.absolute ? kAbsolute : 0), placed(51), placed(50)};
    glyphs[0].setMoveX1(11);
    glyphs[0].setMoveX2(480);
    glyphs[0].setMoveY(9);
    glyphs[1].setMoveX1(3);
    glyphs[1].setMoveX2(-2);
    EXPECT_TRUE(appliesAt(markToBase(), glyphs, 2, each.rightToLeft));
    EXPECT_EQ(movesOf(glyphs[2]), (Moves{each.x, -each.x, each.y}))
        << each.absolute << each.rightToLeft;
  }
}

TEST(MarkBasePos, FlagOfTheMarkSetsOrAdds) {
  Glyphs adding{placed(1), placed(50)};
  Glyphs setting{placed(1), placed(50, kAbsolute)};
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(appliesAt(markToBase(), adding, 1, true));
    EXPECT_TRUE(appliesAt(markToBase(), setting, 1, true));
  }
  EXPECT_EQ(adding[1].getMoveX1(), 2 * (kBaseX - kMarkX));
  EXPECT_EQ(adding[1].getMoveY(), 2 * (kMarkY - kBaseY));
  EXPECT_EQ(setting[1].getMoveX1(), kBaseX - kMarkX);
  EXPECT_EQ(setting[1].getMoveY(), kMarkY - kBaseY);
}

TEST(MarkBasePos, MarkAtTheStartNeverAttaches) {
  Glyphs glyphs{placed(50), placed(1)};
  EXPECT_FALSE(appliesAt(markToBase(), glyphs, 0));
}

TEST(MarkBasePos, BothMustBeCovered) {
  Glyphs otherMark{placed(1), placed(55)};
  EXPECT_FALSE(appliesAt(markToBase(), otherMark, 1));
  // The first base counts: no walk goes on to one that is covered.
  Glyphs otherBase{placed(1), placed(2), placed(50)};
  EXPECT_FALSE(appliesAt(markToBase(), otherBase, 2));
}

TEST(MarkBasePos, BaseWithoutWidthIsPassedOver) {
  Glyphs glyphs{placed(1), placed(2, 0, 0), placed(50)};
  EXPECT_TRUE(appliesAt(markToBase(), glyphs, 2));
  Glyphs alone{placed(1, 0, 0), placed(50)};
  EXPECT_FALSE(appliesAt(markToBase(), alone, 1));
}

TEST(MarkBasePos, BaseWithoutWidthCountsForMarksThatSeeIt) {
  struct Case {
    int flag;
    bool rightToLeft;
    bool sees;
  };
  for (const Case& each :
       {Case{0, true, false}, Case{kSeesZeroWidth, false, true}, Case{kSeesZeroWidth, true, true},
        Case{kAbsolute, false, false}, Case{kAbsolute, true, true}}) {
    Glyphs glyphs{placed(1), placed(2, 0, 0), placed(50, each.flag)};
    EXPECT_EQ(appliesAt(markToBase(), glyphs, 2, each.rightToLeft), !each.sees)
        << each.flag << each.rightToLeft;
  }
}

TEST(MarkBasePos, WideMarkIsPassedOverByItsClass) {
  Glyphs glyphs{placed(1), placed(52, 0, 100), placed(50, kSeesZeroWidth)};
  EXPECT_TRUE(appliesAt(markToBase(), glyphs, 2));
}

TEST(MarkBasePos, ClassesThatAreNoMarksAreBases) {
  for (const int id : {1, 60, 70, 90}) {
    Glyphs glyphs{placed(id), placed(50)};
    EXPECT_TRUE(appliesAt(markToBase(), glyphs, 1)) << id;
  }
  for (const int cls : {-3, -2, -1, 0, 1, 2, 4, 5, 77}) {
    Glyphs glyphs{placed(1), placed(2), placed(50)};
    glyphs[1].setGlyphClassDef(static_cast<QXFontService_NS::GlyphClassDef>(cls));
    EXPECT_FALSE(appliesAt(markToBase(), glyphs, 2)) << cls;
  }
  Glyphs glyphs{placed(1), placed(2), placed(50)};
  glyphs[1].setGlyphClassDef(QXFontService_NS::GCD_MARK);
  EXPECT_TRUE(appliesAt(markToBase(), glyphs, 2));
}

TEST(MarkBasePos, ComponentsArePassedOverIfTheMarkSaysSo) {
  struct Case {
    int flag;
    int compInfo;
    bool passed;
  };
  for (const int cls : {1, 2, 4}) {
    for (const Case& each :
         {Case{0, 1, false}, Case{kPassesComponents, 1, true}, Case{kPassesComponents, 0, false},
          Case{kPassesComponents, -1, false}}) {
      Glyphs glyphs{placed(1), placed(2), placed(50, each.flag)};
      glyphs[1].setGlyphClassDef(static_cast<QXFontService_NS::GlyphClassDef>(cls));
      glyphs[1].setCompInfo(each.compInfo);
      EXPECT_EQ(appliesAt(markToBase(), glyphs, 2), each.passed) << cls << " " << each.compInfo;
    }
  }
  // A glyph of no class is a base all the same.
  Glyphs glyphs{placed(1), placed(80), placed(50, kPassesComponents)};
  glyphs[1].setCompInfo(1);
  EXPECT_FALSE(appliesAt(markToBase(), glyphs, 2));
}

TEST(MarkBasePos, LookupFlagHasNoPartInIt) {
  Glyphs glyphs{placed(1), placed(50)};
  EXPECT_TRUE(appliesAt(markToBase(0xFF0E), glyphs, 1));
}

TEST(MarkBasePos, NeedsAnchorsOfTheClass) {
  for (const int mark : {51, 52, 53}) {  // no anchor of the base, class too high, no mark anchor
    Glyphs glyphs{placed(1), placed(mark, kOutside)};
    EXPECT_FALSE(appliesAt(markToBase(), glyphs, 1)) << mark;
    EXPECT_EQ(glyphs[1].getFlag(), kOutside);
  }
}

TEST(MarkBasePos, IndexBeyondAnArrayIsFalse) {
  const GposFont font(4, 0,
                      {markPos(coverage({50, 51}), coverage({1, 2}), 1, {{0, anchorTable(1, 1)}},
                               {{anchorTable(2, 2)}})});
  Glyphs noMark{placed(1), placed(51)};
  EXPECT_FALSE(appliesAt(font, noMark, 1));
  Glyphs noBase{placed(2), placed(50)};
  EXPECT_FALSE(appliesAt(font, noBase, 1));
}

TEST(MarkBasePos, MarksInARowAllFindTheirBases) {
  const GposFont font = markToBase();
  Glyphs glyphs;
  for (int base = 0; base < 5; ++base) {
    glyphs.push_back(placed(base == 3 ? 2 : 1));
    for (int mark = 0; mark < 4; ++mark) glyphs.push_back(placed(50));
  }
  EXPECT_EQ(passOver(font, 0, glyphs, true), 1);
  for (int i = 0; i < 25; ++i) {
    const bool moves = i % 5 != 0 && i / 5 != 3;
    EXPECT_EQ(at(glyphs, i).getMoveX1(), moves ? kBaseX - kMarkX : 0) << i;
  }
}

TEST(MarkBasePos, MovesOfEarlierMarksCountInLaterSums) {
  Glyphs glyphs{placed(1, kAbsolute), placed(50), placed(50), placed(50)};
  glyphs[1].setMoveX2(10);
  EXPECT_EQ(passOver(markToBase(), 0, glyphs), 1);
  // The advance of the first mark is 10; each mark moves by moveX1, which moveX2 compensates.
  EXPECT_EQ(glyphs[1].getMoveX1(), kBaseX - kMarkX - 500);
  EXPECT_EQ(glyphs[2].getMoveX1(), kBaseX - kMarkX - 510);
  EXPECT_EQ(glyphs[3].getMoveX1(), kBaseX - kMarkX - 510);
}

}  // namespace
}  // namespace qxtest::gpos
