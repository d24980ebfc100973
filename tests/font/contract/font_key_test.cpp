#include "font/contract/font_key.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace QXFontService_NS {
namespace {

TEST(FontKey, ZeroWeightIs400AndZeroStretchIs5) {
  EXPECT_TRUE(makeFontKey(0, false, 0) == (FS_FontKey{400, 0, 5}));
  EXPECT_TRUE(makeFontKey(0, true, 3) == (FS_FontKey{400, 1, 3}));
}

TEST(FontKey, OtherValuesComeAsTheyAre) {
  EXPECT_TRUE(makeFontKey(1, true, -1) == (FS_FontKey{1, 1, -1}));
  EXPECT_TRUE(makeFontKey(-7, false, 9) == (FS_FontKey{-7, 0, 9}));
}

TEST(FontKey, OrderIsWeightThenItalicThenStretch) {
  const std::vector<FS_FontKey> ordered = {{-1, 1, 9},  {100, 1, 9}, {400, 0, 3},
                                           {400, 0, 5}, {400, 1, 1}, {700, 0, 1}};
  EXPECT_TRUE(std::is_sorted(ordered.begin(), ordered.end()));
  EXPECT_EQ(std::adjacent_find(ordered.begin(), ordered.end()), ordered.end());
}

}  // namespace
}  // namespace QXFontService_NS
