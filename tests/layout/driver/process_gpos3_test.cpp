#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

TEST(ProcessGPOS3, RunsOverAllGlyphsAndAnswersTheFirstPlace) {
  const GposFont font(1, 0, {shift({1}, 10)});
  Glyphs glyphs{placed(2), placed(1), placed(3), placed(1)};
  EXPECT_EQ(passOver(font, 0, glyphs), 1);
  EXPECT_EQ(movesOf(glyphs),
            (std::vector<Moves>{{0, 500, 0}, {10, 490, 0}, {0, 500, 0}, {10, 490, 0}}));
}

TEST(ProcessGPOS3, NowhereIsMinusOne) {
  const GposFont font(1, 0, {shift({1}, 10)});
  Glyphs glyphs{placed(2)};
  EXPECT_EQ(passOver(font, 0, glyphs), -1);
  Glyphs none;
  EXPECT_EQ(passOver(font, 0, none), -1);
}

TEST(ProcessGPOS3, IndexOutsideIsMinusOne) {
  const GposFont font(1, 0, {shift({1}, 10)});
  Glyphs glyphs{placed(1)};
  for (const int index : {-1, 1, 2147483647, -2147483647})
    EXPECT_EQ(passOver(font, index, glyphs), -1) << index;
  EXPECT_EQ(glyphs[0].getMoveX1(), 0);
}

TEST(ProcessGPOS3, WithoutInfoOrLanguageSystemIsMinusOne) {
  Glyphs glyphs{placed(1)};
  EXPECT_EQ(QXFontService_NS::layout::processGPOS3(nullptr, 0, glyphs, false), -1);
  LayoutTableBuilder table;
  table.script("latn", {{table.feature("test", {table.lookup(1, 0, {shift({1}, 10)})})}});
  EXPECT_EQ(passOver(GposFont(table.str()), 0, glyphs), -1);
}

TEST(ProcessGPOS3, EntryThatNamesNoLookupIsMinusOne) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {shift({1}, 10)});
  table.script("test", {{table.feature("test", {0, 7})}});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1)};
  EXPECT_EQ(passOver(font, 1, glyphs), -1);
  EXPECT_EQ(passOver(font, 0, glyphs), 0);
}

TEST(ProcessGPOS3, IndexCountsTheLookupsInOrder) {
  LayoutTableBuilder table;
  table.lookup(1, 0, {shift({1}, 10)});
  table.lookup(1, 0, {shift({1}, 100)});
  table.script("test", {{table.feature("kern", {1}), table.feature("mark", {0})}});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1)};
  EXPECT_EQ(passOver(font, 1, glyphs), 0);
  EXPECT_EQ(glyphs[0].getMoveX1(), 100);
}

/// A mark that is placed 100 from the start of its base, or from its end.
std::string mark() {
  return markPos(coverage({50}), coverage({1}), 1, {{0, anchorTable(0, 0)}},
                 {{anchorTable(100, 0)}});
}

TEST(ProcessGPOS3, LookupOfRightToLeftRunsSoInAnyCase) {
  for (const auto& [flag, argument, x] :
       {std::tuple(0U, false, -400), std::tuple(0U, true, 100), std::tuple(1U, false, 100),
        std::tuple(1U, true, 100), std::tuple(0xFFFEU, false, -400)}) {
    const GposFont font(4, flag, {mark()});
    Glyphs glyphs{placed(1), placed(50)};
    EXPECT_EQ(passOver(font, 0, glyphs, argument), 1);
    EXPECT_EQ(glyphs[1].getMoveX1(), x) << flag << argument;
  }
}

TEST(ProcessGPOS3, NestedLookupsRunInTheDirectionOfTheOuterOne) {
  LayoutTableBuilder table;
  table.onlyLookup("test", 8, 0, {chainContext3({}, {coverage({50})}, {}, {{0, 1}})});
  table.lookup(4, 0x0001, {mark()});
  const GposFont font(table.str());
  Glyphs glyphs{placed(1), placed(50)};
  EXPECT_EQ(passOver(font, 0, glyphs, false), 1);
  EXPECT_EQ(glyphs[1].getMoveX1(), -400);
}

std::string pairsOfOne(unsigned format2) {
  ValueWords second;
  if (format2 != 0) second = {0};
  return pairPos1(coverage({1}), 1, format2, {{{1, {10}, second}}});
}

TEST(ProcessGPOS3, PairsOverlapUnlessTheyMoveOn) {
  struct Case {
    int flag;
    unsigned format2;
    std::vector<int> shifts;
    int first;
  };
  // Without bit 0x8000 each glyph is a first one; with it, a second value consumes the second
  // glyph, and without one the second glyph is still visited.
  for (const Case& each :
       {Case{0, 0, {10, 10, 10, 0}, 0}, Case{0, 1, {10, 10, 10, 0}, 0},
        Case{kAbsolute, 0, {10, 10, 10, 0}, 0}, Case{kAbsolute, 1, {10, 0, 10, 0}, 1}}) {
    const GposFont font(2, 0, {pairsOfOne(each.format2)});
    Glyphs glyphs(4, placed(1, each.flag));
    EXPECT_EQ(passOver(font, 0, glyphs), each.first);
    std::vector<int> shifts;
    for (const GlyphIDPosition& glyph : glyphs) shifts.push_back(glyph.getMoveX1());
    EXPECT_EQ(shifts, each.shifts) << each.flag << " " << each.format2;
  }
}

TEST(ProcessGPOS3, GlyphsThatAPairPassesOverAreSteppedOver) {
  // Both the pair and the mark between it are in the lookup; the pair comes first.
  const std::string withMark =
      pairPos1(coverage({1, 50}), 1, 0, {{{2, {10}, {}}}, {{2, {77}, {}}}});
  const GposFont font(2, kIgnoreMarks, {withMark});
  Glyphs absolute{placed(1, kAbsolute), placed(50), placed(2)};
  EXPECT_EQ(passOver(font, 0, absolute), 1);  // the place before the second glyph
  EXPECT_EQ(absolute[1].getMoveX1(), 0);
  Glyphs additive{placed(1), placed(50), placed(2)};
  EXPECT_EQ(passOver(font, 0, additive), 1);
  EXPECT_EQ(additive[1].getMoveX1(), 77);
}

TEST(ProcessGPOS3, PairByClassMovesOnWithoutApplying) {
  const std::string empty =
      pairPos2(coverage({1}), 0, 0x10, classDef(1, {0}), classDef(1, {0}), {{{{}, {9}}}});
  LayoutTableBuilder table;
  table.onlyLookup("test", 2, 0, {empty, pairsOfOne(0)});
  Glyphs glyphs(3, placed(1, kAbsolute));
  // 0: moves on to 1, where the second subtable applies to (1, 2) and steps to 1; then 2.
  EXPECT_EQ(passOver(GposFont(table.str()), 0, glyphs), 1);
  std::vector<int> shifts;
  for (const GlyphIDPosition& glyph : glyphs) shifts.push_back(glyph.getMoveX1());
  EXPECT_EQ(shifts, (std::vector<int>{0, 10, 0}));
}

}  // namespace
}  // namespace qxtest::gpos
