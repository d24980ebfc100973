#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

GposFont single(const std::string& subTable) {
  return GposFont(1, 0, {subTable});
}

TEST(SinglePosFormat1, MovesItsGlyphsAlikeAtAnyPlace) {
  const GposFont font = single(singlePos1(coverage({1, 2}), 0x05, {10, -30}));
  Glyphs glyphs{placed(1), placed(2), placed(3)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_TRUE(appliesAt(font, glyphs, 1));
  EXPECT_FALSE(appliesAt(font, glyphs, 2));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{10, 460, 0}, {10, 460, 0}, {0, 500, 0}}));
}

TEST(SinglePosFormat1, WorksAtTheLastGlyph) {
  const GposFont font = single(singlePos1(coverage({1}), 0x01, {10}));
  Glyphs glyphs{placed(1)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
}

TEST(SinglePosFormat1, DeviceTablesAloneDoNotApply) {
  const GposFont font = single(singlePos1(coverage({1}), 0x10, {6}));
  Glyphs glyphs{placed(1, kOutside)};
  EXPECT_FALSE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{0, 500, 0}));
  EXPECT_EQ(glyphs[0].getFlag(), kOutside);
}

TEST(SinglePosFormat1, DeviceTablesBesideAValueHaveNoEffect) {
  const GposFont font = single(singlePos1(coverage({1}), 0x11, {10, 6}));
  Glyphs glyphs{placed(1)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{10, 490, 0}));
}

TEST(SinglePosFormat1, ZeroIsAValueAndApplies) {
  const GposFont font = single(singlePos1(coverage({1}), 0x04, {0}));
  Glyphs glyphs{placed(1, kOutside)};
  glyphs[0].setMoveX1(7);
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{0, 500, 0}));
  EXPECT_EQ(glyphs[0].getFlag(), 0);
}

TEST(SinglePosFormat2, MovesEachGlyphByItsOwnValue) {
  const GposFont font = single(singlePos2(coverage({1, 4}), 0x03, {{1, 2}, {3, 4}}));
  Glyphs glyphs{placed(4), placed(1)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_TRUE(appliesAt(font, glyphs, 1));
  EXPECT_EQ(movesOf(glyphs), (std::vector<Moves>{{3, 497, -4}, {1, 499, -2}}));
}

TEST(SinglePosFormat2, DeviceOffsetsTakeRoomInEachRecord) {
  const GposFont font = single(singlePos2(coverage({1, 4}), 0x41, {{1, 99}, {3, 99}}));
  Glyphs glyphs{placed(4)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(movesOf(glyphs[0]), (Moves{3, 497, 0}));
}

TEST(SinglePosFormat2, IndexBeyondTheValuesIsNotCovered) {
  const std::string twoOfThree = singlePos2(coverage({1, 2, 3}), 0x01, {{1}, {2}});
  const GposFont font = single(twoOfThree);
  Glyphs glyphs{placed(2), placed(3)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_FALSE(appliesAt(font, glyphs, 1));
  EXPECT_EQ(movesOf(glyphs[1]), (Moves{0, 500, 0}));
}

TEST(SinglePosFormat2, WithoutAFieldNothingApplies) {
  for (const unsigned format : {0x00U, 0x80U}) {
    const GposFont font = single(singlePos2(coverage({1}), format, {{6}}));
    Glyphs glyphs{placed(1)};
    EXPECT_FALSE(appliesAt(font, glyphs, 0)) << format;
  }
}

TEST(SinglePos, WithoutCoverageCoversNothing) {
  Glyphs glyphs{placed(1), placed(0)};
  for (const std::string& subTable : {singlePos1("", 1, {5}), singlePos2("", 1, {{5}, {6}})}) {
    EXPECT_FALSE(appliesAt(single(subTable), glyphs, 0));
    EXPECT_FALSE(appliesAt(single(subTable), glyphs, 1));
  }
}

TEST(SinglePos, UnknownFormatIsNullAndPassedBy) {
  std::string unknown = shift({1}, 5);
  unknown[1] = 3;
  const GposFont font(1, 0, {unknown, shift({1}, 7)});
  EXPECT_EQ(font.gpos->lookupList.lookups.at(0).subTables.at(0), nullptr);
  Glyphs glyphs{placed(1)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 7);
}

TEST(SinglePos, FirstSubTableThatAppliesEndsTheLookup) {
  const GposFont font(1, 0, {shift({2}, 1), shift({1}, 5), shift({1}, 7)});
  Glyphs glyphs{placed(1)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_EQ(glyphs[0].getMoveX1(), 5);
}

TEST(SinglePos, FlagOfTheLookupHasNoPartInIt) {
  const GposFont font(1, 0xFF0E, {shift({1, 50}, 5)});
  Glyphs glyphs{placed(1), placed(50)};
  EXPECT_TRUE(appliesAt(font, glyphs, 0));
  EXPECT_TRUE(appliesAt(font, glyphs, 1));
}

}  // namespace
}  // namespace qxtest::gpos
