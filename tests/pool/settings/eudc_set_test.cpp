#include "pool/settings/eudc_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace QXFontService_NS {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

int sizeOf(const EudcSet& set) {
  int count = 0;
  for (int code = 0; code < 0x10000; ++code) count += set.contains(code) ? 1 : 0;
  return count;
}

TEST(EudcSet, IsBornEmpty) {
  EXPECT_EQ(sizeOf(EudcSet()), 0);
}

TEST(EudcSet, HoldsARangeToItsVeryEnds) {
  const struct {
    int first, last;
  } rows[] = {{0, 0}, {7, 8}, {8, 15}, {9, 23}, {0xE000, 0xF8FF}, {0xFFFF, 0xFFFF}, {0, 0xFFFF}};
  for (const auto& row : rows) {
    EudcSet set;
    set.add(row.first, row.last);
    EXPECT_EQ(sizeOf(set), row.last - row.first + 1) << row.first;
    EXPECT_TRUE(set.contains(row.first) && set.contains(row.last)) << row.first;
    EXPECT_FALSE(set.contains(row.first - 1) || set.contains(row.last + 1)) << row.first;
  }
}

TEST(EudcSet, KeepsWhatItHolds) {
  EudcSet set;
  set.add(1, 1);
  set.add(3, 4);
  set.add(1, 3);
  EXPECT_EQ(sizeOf(set), 4);
}

TEST(EudcSet, OfARangeThatReachesOutsideHoldsThePartInside) {
  const struct {
    std::int64_t first, last;
    int size;
  } rows[] = {{-5, 10, 11},
              {0xFFFA, 0x10010, 6},
              {-5, -1, 0},
              {0x10000, 0x10FFFF, 0},
              {10, 9, 0},
              {kLowest, kHighest, 0x10000},
              {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
               0x10000}};
  for (const auto& row : rows) {
    EudcSet set;
    set.add(row.first, row.last);
    EXPECT_EQ(sizeOf(set), row.size) << row.first;
  }
}

TEST(EudcSet, HoldsNoNumberOutside) {
  EudcSet set;
  set.add(0, 0xFFFF);
  for (const int code : {kLowest, -1, 0x10000, 0x1E000, kHighest}) {
    EXPECT_FALSE(set.contains(code)) << code;
  }
}

TEST(EudcSet, IsCleared) {
  EudcSet set;
  set.add(0, 0xFFFF);
  set.clear();
  EXPECT_EQ(sizeOf(set), 0);
}

}  // namespace
}  // namespace QXFontService_NS
