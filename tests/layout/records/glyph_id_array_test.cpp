#include "qxfontservice/glyph_id_array.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "qxfontservice/glyph_id_array2.h"
#include "qxfontservice/glyph_id_position.h"

#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS {
namespace {

std::vector<int> idsOf(const GlyphIDArray& array) {
  std::vector<int> ids;
  for (const GlyphIDClassPair& pair : array) ids.push_back(pair.glyphID);
  return ids;
}

GlyphIDArray arrayOf(const std::vector<unsigned short>& ids) {
  GlyphIDArray array;
  for (const unsigned short id : ids) array.push_back(id, GCD_BASE);
  return array;
}

using Ids = std::vector<int>;

TEST(GlyphIDArray, HasPlacesWithoutAGlyph) {
  const GlyphIDArray array(2);
  ASSERT_EQ(array.size(), 2);
  EXPECT_EQ(array[1].glyphID, 0xFFFF);
  EXPECT_EQ(array.at(1).glyphClass, GCD_NONE);
  EXPECT_TRUE(GlyphIDArray(0).empty());
  EXPECT_TRUE(GlyphIDArray(-1).empty());
  static_assert(!std::is_polymorphic_v<GlyphIDArray>);
}

TEST(GlyphIDArray, InsertsBeforeAndAppendsOutside) {
  const struct {
    int at;
    Ids want;
  } cases[] = {{0, {9, 1, 2}}, {1, {1, 9, 2}}, {2, {1, 2, 9}}, {3, {1, 2, 9}}, {-1, {1, 2, 9}}};
  for (const auto& c : cases) {
    GlyphIDArray array = arrayOf({1, 2});
    array.insert(c.at, 9, GCD_MARK);
    EXPECT_EQ(idsOf(array), c.want) << c.at;
    GlyphIDArray pairs = arrayOf({1, 2});
    pairs.insert(c.at, GlyphIDClassPair(9, GCD_MARK));
    EXPECT_EQ(idsOf(pairs), c.want) << c.at;
  }
}

TEST(GlyphIDArray, ErasesOnlyARealRange) {
  const struct {
    int first, last;
    Ids want;
  } cases[] = {{1, 2, {1, 3}}, {5, 5, {1, 2, 3}}, {6, 5, {1, 2, 3}}, {2, 1, {1, 2, 3}},  {0, 3, {}},
               {1, 9, {1}},    {-4, 1, {2, 3}},   {3, 9, {1, 2, 3}}, {-2, -1, {1, 2, 3}}};
  for (const auto& c : cases) {
    GlyphIDArray array = arrayOf({1, 2, 3});
    array.erase(c.first, c.last);
    EXPECT_EQ(idsOf(array), c.want) << c.first << " " << c.last;
  }
}

TEST(GlyphIDArray, TakesPairsOfItsOwn) {
  GlyphIDArray array = arrayOf({1, 2, 3});
  for (int i = 0; i < 40; ++i) array.push_back(array[2]);
  EXPECT_EQ(array[42].glyphID, 3);
  for (int i = 0; i < 80; ++i) array.insert(0, array[array.size() - 1]);
  EXPECT_EQ(array[0].glyphID, 3);
  EXPECT_EQ(array[80].glyphID, 1);
}

TEST(GlyphIDArray, IsAValue) {
  GlyphIDArray array = arrayOf({1, 2});
  GlyphIDArray copy(array);
  copy[0] = {8, GCD_BASE};
  copy.at(1) = {9, GCD_BASE};
  EXPECT_EQ(idsOf(array), (Ids{1, 2}));
  array = copy;
  copy.clear();
  EXPECT_TRUE(copy.empty());
  EXPECT_EQ(idsOf(array), (Ids{8, 9}));
}

std::vector<GlyphIDPosition> positionsOfAllKinds() {
  std::vector<GlyphIDPosition> positions(4);
  positions[0].setGlyphID(5, GCD_BASE);
  positions[1].clearGlyph();
  positions[2].ignoreGlyph();
  positions[3].setGlyphID(6, GCD_IGNORED);
  return positions;
}

TEST(GlyphIDArray, ReadingLeavesOutTheIgnoredOrTheAbsent) {
  GlyphIDArray array = arrayOf({1, 2, 3, 4, 5});
  EXPECT_EQ(array.readGIDs(positionsOfAllKinds(), true), 2);
  EXPECT_EQ(idsOf(array), (Ids{5, 0xFFFF}));
  EXPECT_EQ(array.readGIDs(positionsOfAllKinds(), false), 2);
  EXPECT_EQ(idsOf(array), (Ids{5, 6}));
  EXPECT_EQ(array.readGIDs({}, true), 0);
}

TEST(GlyphIDArray2, HasZeroWordsForItsPlaces) {
  const GlyphIDArray2 array(2);
  EXPECT_EQ(array.size(), 2);
  EXPECT_EQ(array.ligaInfo(1), 0);
  EXPECT_EQ(GlyphIDArray2(-1).size(), 0);
  EXPECT_TRUE(GlyphRecordAccess::words(GlyphIDArray2(-1)).empty());
}

TEST(GlyphIDArray2, SplitsAWordWithoutSign) {
  GlyphIDArray2 array(1);
  GlyphRecordAccess::words(array)[0] = 0xFFFE8001;
  EXPECT_EQ(array.ligaInfo(0), 0x8001);
  EXPECT_EQ(array.skipInfo(0), 0xFFFE);
  EXPECT_EQ(array.skipInfo(1), 0);
  EXPECT_EQ(array.skipInfo(-1), 0);
}

TEST(GlyphIDArray2, ReadingEmptiesTheWords) {
  GlyphIDArray2 array(3);
  EXPECT_EQ(array.readGIDs(positionsOfAllKinds(), false), 2);
  EXPECT_TRUE(GlyphRecordAccess::words(array).empty());
}

TEST(GlyphIDArray2, InheritedOperationsLeaveTheWords) {
  GlyphIDArray2 array(2);
  array.push_back(1, GCD_BASE);
  array.insert(0, 2, GCD_BASE);
  array.erase(0, 3);
  EXPECT_EQ(array.size(), 1);
  EXPECT_EQ(GlyphRecordAccess::words(array).size(), 2u);
}

TEST(GlyphIDArray2, CopiesAndClearsBoth) {
  GlyphIDArray2 array(1);
  GlyphRecordAccess::words(array)[0] = 3;
  GlyphIDArray2 copy(array);
  GlyphIDArray2 assigned;
  assigned = copy;
  EXPECT_EQ(assigned.ligaInfo(0), 3);
  copy.clear();
  EXPECT_TRUE(copy.empty());
  EXPECT_TRUE(GlyphRecordAccess::words(copy).empty());
  EXPECT_EQ(array.ligaInfo(0), 3);
}

}  // namespace
}  // namespace QXFontService_NS
