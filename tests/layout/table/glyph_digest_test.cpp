#include "layout/table/glyph_digest.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"

namespace QXFontService_NS::layout {
namespace {

TEST(GlyphDigest, HoldsNothingAtFirst) {
  const GlyphDigest digest;
  for (unsigned glyph = 0; glyph <= 0xFFFF; ++glyph)
    ASSERT_FALSE(digest.mayHold(static_cast<unsigned short>(glyph)));
}

TEST(GlyphDigest, OfOneGlyphRulesOutAllButAFew) {
  for (const unsigned short added : qxtest::GlyphIds{0, 63, 64, 1000, 0xFFFF}) {
    GlyphDigest digest;
    digest.add(added);
    unsigned held = 0;
    for (unsigned glyph = 0; glyph <= 0xFFFF; ++glyph)
      held += digest.mayHold(static_cast<unsigned short>(glyph));
    EXPECT_TRUE(digest.mayHold(added));
    EXPECT_LE(held, 2u) << added;
  }
}

TEST(GlyphDigest, HoldsAllOfItsRanges) {
  const unsigned edges[] = {0, 1, 62, 63, 64, 65, 127, 128, 200, 1007, 1008, 40000, 0xFFFF};
  for (const unsigned first : edges)
    for (const unsigned last : edges) {
      GlyphDigest digest;
      digest.addRange(static_cast<unsigned short>(first), static_cast<unsigned short>(last));
      for (unsigned glyph = first; glyph <= last; ++glyph)
        ASSERT_TRUE(digest.mayHold(static_cast<unsigned short>(glyph))) << first << " " << last;
      EXPECT_EQ(digest.mayHold(static_cast<unsigned short>(first)), first <= last);
    }
}

TEST(GlyphDigest, OfAShortRangeRulesOutItsNeighbours) {
  GlyphDigest digest;
  digest.addRange(1000, 1015);
  EXPECT_FALSE(digest.mayHold(999));
  EXPECT_FALSE(digest.mayHold(1016));
  EXPECT_FALSE(digest.mayHold(0));
  EXPECT_FALSE(digest.mayHold(0xFFFF));
}

}  // namespace
}  // namespace QXFontService_NS::layout
