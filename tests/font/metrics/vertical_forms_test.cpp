#include "font/metrics/vertical_forms.h"

#include <gtest/gtest.h>

namespace QXFontService_NS::metrics {
namespace {

const MortPairs kMort{2, {{3, 103}, {5, 0xFFFF}}};

std::uint16_t noGsub(std::uint16_t) {
  return kNoGlyph;
}

TEST(VerticalForms, GsubComesFirst) {
  const auto gsub = [](std::uint16_t glyph) { return static_cast<std::uint16_t>(glyph + 1000); };
  EXPECT_EQ(verticalGlyph(3, gsub, kMort), 1003);
}

TEST(VerticalForms, MortFollowsWhereGsubMisses) {
  EXPECT_EQ(verticalGlyph(3, noGsub, kMort), 103);
}

TEST(VerticalForms, TheHorizontalGlyphStandsWhereBothMiss) {
  EXPECT_EQ(verticalGlyph(4, noGsub, kMort), 4);
  EXPECT_EQ(verticalGlyph(5, noGsub, kMort), 5);
}

TEST(VerticalForms, GlyphZeroIsAnAnswer) {
  const auto gsub = [](std::uint16_t) { return std::uint16_t{0}; };
  EXPECT_EQ(verticalGlyph(3, gsub, kMort), 0);
}

TEST(VerticalForms, NoGlyphStaysNone) {
  const auto gsub = [](std::uint16_t) { return std::uint16_t{7}; };
  EXPECT_EQ(verticalGlyph(kNoGlyph, gsub, kMort), kNoGlyph);
}

TEST(VerticalForms, AnyGsubFeatureCountsAsOne) {
  EXPECT_TRUE(hasVerticalForms(1, MortPairs()));
  EXPECT_TRUE(hasVerticalForms(0, kMort));
  EXPECT_FALSE(hasVerticalForms(0, MortPairs()));
}

}  // namespace
}  // namespace QXFontService_NS::metrics
