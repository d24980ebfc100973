#include "qxfontservice/glyph_id_class_pair.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace QXFontService_NS {
namespace {

TEST(GlyphIDClassPair, IsThirtyTwoBitsCopiedAsAWhole) {
  static_assert(sizeof(GlyphIDClassPair) == 4);
  static_assert(std::is_trivially_copyable_v<GlyphIDClassPair>);
  static_assert(!std::is_polymorphic_v<GlyphIDClassPair>);
  static_assert(sizeof(GlyphClassDef) == 2);
  GlyphIDClassPair a(7, GCD_MARK);
  GlyphIDClassPair b;
  b = a;
  EXPECT_EQ(b.glyphID, 7);
  EXPECT_EQ(b.glyphClass, GCD_MARK);
}

TEST(GlyphIDClassPair, IsNoGlyphOfNoClassAtFirst) {
  const GlyphIDClassPair pair;
  EXPECT_EQ(pair.glyphID, 0xFFFF);
  EXPECT_EQ(pair.glyphClass, -1);
  EXPECT_FALSE(pair.hasGlyph());
}

TEST(GlyphIDClassPair, ClearsAndIgnores) {
  GlyphIDClassPair pair(0, GCD_BASE);
  EXPECT_TRUE(pair.hasGlyph());
  pair.ignore();
  EXPECT_EQ(pair.glyphID, 0xFFFF);
  EXPECT_EQ(pair.glyphClass, -2);
  pair = GlyphIDClassPair(5, GCD_LIGATURE);
  pair.clear();
  EXPECT_EQ(pair.glyphID, 0xFFFF);
  EXPECT_EQ(pair.glyphClass, -1);
}

TEST(GlyphIDClassPair, SwallowedPlaceReadsAsClassMinusOne) {
  const GlyphIDClassPair pair(0xFFFF, static_cast<GlyphClassDef>(static_cast<short>(0xFFFF)));
  EXPECT_EQ(pair.glyphClass, GCD_NONE);
}

TEST(GlyphClassDef, HasTheValuesOfTheTableAndThreeMore) {
  EXPECT_EQ(GCD_BASE, 1);
  EXPECT_EQ(GCD_LIGATURE, 2);
  EXPECT_EQ(GCD_MARK, 3);
  EXPECT_EQ(GCD_COMPONENT, 4);
  EXPECT_EQ(GCD_NONE, -1);
  EXPECT_EQ(GCD_IGNORED, -2);
  EXPECT_EQ(GCD_NO_TABLE, -3);
}

}  // namespace
}  // namespace QXFontService_NS
