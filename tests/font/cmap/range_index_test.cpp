#include "font/cmap/range_index.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace QXFontService_NS::cmap {
namespace {

using Ranges = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

RangeIndex indexOf(const Ranges& ranges) {
  RangeIndex index;
  index.make(
      static_cast<std::uint32_t>(ranges.size()), [&](std::size_t i) { return ranges[i].first; },
      [&](std::size_t i) { return ranges[i].second; });
  return index;
}

TEST(RangeIndex, NamesTheOnlyRangeThatMayHoldACode) {
  const Ranges ranges = {{5, 5}, {7, 0x2FF}, {0x300, 0x300}, {0x3F0, 0x502}, {0x505, 0x506}};
  const RangeIndex index = indexOf(ranges);
  for (std::uint32_t i = 0; i < ranges.size(); ++i) {
    for (std::uint32_t code = ranges[i].first; code <= ranges[i].second; ++code) {
      ASSERT_TRUE(index.covers(code));
      ASSERT_EQ(index.candidate(code, [&](std::size_t at) { return ranges[at].first; }), i) << code;
    }
  }
}

TEST(RangeIndex, CoversAllUpToTheLastRange) {
  const RangeIndex index = indexOf({{0x300, 0x301}});
  EXPECT_TRUE(index.covers(0));
  EXPECT_TRUE(index.covers(0x301));
  EXPECT_FALSE(index.covers(0x400));
  EXPECT_FALSE(index.covers(UINT32_MAX));
}

TEST(RangeIndex, EndsWithUnicode) {
  const RangeIndex index = indexOf({{0, 0xFFFFFFFF}});
  EXPECT_TRUE(index.covers(0x10FFFF));
  EXPECT_FALSE(index.covers(0x110000));
}

TEST(RangeIndex, RangesThatDoNotAscendAreLeftAlone) {
  EXPECT_TRUE(indexOf({}).empty());
  EXPECT_TRUE(indexOf({{5, 4}}).empty());
  EXPECT_TRUE(indexOf({{5, 6}, {6, 7}}).empty());
  EXPECT_TRUE(indexOf({{10, 11}, {1, 2}}).empty());
  EXPECT_FALSE(indexOf({{5, 6}, {7, 7}}).empty());
}

TEST(RangeIndex, MoreRangesThanGlyphsAreLeftAlone) {
  Ranges ranges;
  for (std::uint32_t i = 0; i < 0xFFFF; ++i) ranges.emplace_back(2 * i, 2 * i);
  const RangeIndex most = indexOf(ranges);
  const auto startAt = [&](std::size_t i) { return ranges[i].first; };
  EXPECT_EQ(most.candidate(2 * 0xFFFE, startAt), 0xFFFEu);
  ranges.emplace_back(0x30000, 0x30000);
  EXPECT_TRUE(indexOf(ranges).empty());
}

TEST(RangeIndex, TellsWhichBlocksARangeTouches) {
  const Ranges ranges = {{0x10, 0x10}, {0x2FF, 0x400}};
  const RangeIndex index = indexOf(ranges);
  const auto startAt = [&](std::size_t i) { return ranges[i].first; };
  const std::vector<bool> touched = {true, false, true, true, true, false};
  for (std::uint32_t block = 0; block < touched.size(); ++block) {
    EXPECT_EQ(index.touches(block, startAt), touched[block]) << block;
  }
}

}  // namespace
}  // namespace QXFontService_NS::cmap
