#include "layout/table/glyph_set.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"

namespace QXFontService_NS::layout {
namespace {

TEST(GlyphSet, HoldsNothingAtFirst) {
  const GlyphSet set;
  EXPECT_FALSE(set.contains(0));
  EXPECT_FALSE(set.contains(0xFFFF));
  EXPECT_EQ(set.memory(), 0u);
}

TEST(GlyphSet, HoldsSingleGlyphs) {
  GlyphSet set;
  for (const unsigned short glyph : qxtest::GlyphIds{0, 63, 64, 0xFFFF}) set.add(glyph);
  for (const unsigned short glyph : qxtest::GlyphIds{0, 63, 64, 0xFFFF})
    EXPECT_TRUE(set.contains(glyph));
  for (const unsigned short glyph : qxtest::GlyphIds{1, 62, 65, 0xFFFE})
    EXPECT_FALSE(set.contains(glyph));
  EXPECT_EQ(set.memory(), 8192u);
}

TEST(GlyphSet, HoldsExactlyItsRanges) {
  const unsigned edges[] = {0, 1, 62, 63, 64, 65, 127, 128, 200, 0xFFFF};
  for (const unsigned first : edges)
    for (const unsigned last : edges) {
      GlyphSet set;
      set.addRange(static_cast<unsigned short>(first), static_cast<unsigned short>(last));
      for (unsigned glyph = 0; glyph <= 0xFFFF; glyph += glyph < 260 ? 1 : 0x101)
        ASSERT_EQ(set.contains(static_cast<unsigned short>(glyph)), first <= glyph && glyph <= last)
            << first << " " << last << " " << glyph;
    }
}

TEST(GlyphSet, CanHoldEveryGlyph) {
  GlyphSet set;
  set.add(70);
  set.addAll();
  for (const unsigned short glyph : qxtest::GlyphIds{0, 70, 71, 0xFFFF})
    EXPECT_TRUE(set.contains(glyph));
  EXPECT_EQ(set.memory(), 0u);
}

}  // namespace
}  // namespace QXFontService_NS::layout
