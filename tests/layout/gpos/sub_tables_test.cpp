// What subtables of all positioning types have in common.

#include <gtest/gtest.h>

#include "layout/gpos/position_runs.h"

namespace qxtest::gpos {
namespace {

struct Row {
  unsigned type;
  std::string subTable;
  char formats;  ///< how many formats its type has
};

std::vector<Row> allSubTables() {
  const std::string one = coverage({1});
  return {{1, singlePos1(one, 1, {0}), 2},
          {1, singlePos2(one, 1, {}), 2},
          {2, pairPos1(one, 1, 0, {}), 2},
          {2, pairPos2(one, 1, 0, "", "", {}), 2},
          {3, cursivePos(one, {}), 1},
          {4, markPos(one, one, 1, {}, {}), 1},
          {5, markLigPos(one, one, 1, {}, {}), 1},
          {6, markPos(one, one, 1, {}, {}), 1},
          {7, context1(one, {}), 3},
          {7, context2(one, "", {}), 3},
          {7, context3({one}, {}), 3},
          {8, chainContext1(one, {}), 3},
          {8, chainContext2(one, "", "", "", {}), 3},
          {8, chainContext3({}, {one}, {}, {}), 3}};
}

QXFontService_NS::layout::SubTablePtr read(unsigned type, const std::string& subTable) {
  const GposFont font(type, 0, {subTable});
  return font.gpos->lookupList.lookups.at(0).subTables.at(0);
}

TEST(GposSubTable, HasItsLookupType) {
  for (const Row& row : allSubTables()) {
    const auto subTable = read(row.type, row.subTable);
    ASSERT_NE(subTable, nullptr) << row.type;
    EXPECT_EQ(subTable->lookupType(), static_cast<int>(row.type));
  }
}

TEST(GposSubTable, OfUnknownFormatIsNull) {
  for (const Row& row : allSubTables()) {
    std::string bytes = row.subTable;
    for (const int format : {0, row.formats + 1}) {
      bytes[1] = static_cast<char>(format);
      EXPECT_EQ(read(row.type, bytes), nullptr) << row.type << ' ' << format;
    }
  }
}

TEST(GposSubTable, HasNoAnswerForSubstitution) {
  for (const Row& row : allSubTables()) {
    const auto subTable = read(row.type, row.subTable);
    ASSERT_NE(subTable, nullptr) << row.type;
    EXPECT_EQ(subTable->substGlyph(1), 0xFFFF);
    EXPECT_EQ(subTable->alternateGlyph(1, 1), 0xFFFF);
  }
}

}  // namespace
}  // namespace qxtest::gpos
