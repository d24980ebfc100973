#include "common/limits.h"

#include <gtest/gtest.h>

namespace QXCommonNS::limits {
namespace {

TEST(Limits, GrowWithTheRunFromAFloor) {
  EXPECT_EQ(atLeast(kNestedLookupRuns, kNestedLookupRunsPerGlyph, 0), 65'536u);
  EXPECT_EQ(atLeast(kNestedLookupRuns, kNestedLookupRunsPerGlyph, 16), 65'536u);
  EXPECT_EQ(atLeast(kNestedLookupRuns, kNestedLookupRunsPerGlyph, 17), 69'632u);
  EXPECT_EQ(atLeast(kGrownGlyphs, kGrownGlyphsPerGlyph, 256), 65'536u);
  EXPECT_EQ(atLeast(kGrownGlyphs, kGrownGlyphsPerGlyph, 257), 65'792u);
}

}  // namespace
}  // namespace QXCommonNS::limits
