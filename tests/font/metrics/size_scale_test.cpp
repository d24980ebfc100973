#include "font/metrics/size_scale.h"

#include <gtest/gtest.h>

#include <climits>

namespace QXFontService_NS::metrics {
namespace {

constexpr SizeBases kBases{2400, 2048};

TEST(SizeScale, SizeZeroLeavesFontUnits) {
  EXPECT_EQ(scaleToSize(1234, 0, kBases), 1234.0F);
}

TEST(SizeScale, ANegativeSizeIsTheEm) {
  EXPECT_EQ(scaleToSize(1024, -1000, kBases), 500.0F);
  EXPECT_EQ(scaleToSize(2048, -12, kBases), 12.0F);
}

TEST(SizeScale, APositiveSizeIsTheCellHeight) {
  EXPECT_EQ(scaleToSize(1200, 1000, kBases), 500.0F);
}

TEST(SizeScale, TheDivisionComesFirstInSinglePrecision) {
  int differs = 0;
  for (int value = 1; value < 2048; ++value) {
    const auto v = static_cast<float>(value);
    EXPECT_EQ(scaleToSize(value, -1000, kBases), v / 2048.0F * 1000.0F);
    EXPECT_EQ(scaleToSize(value, 1000, kBases), v / 2400.0F * 1000.0F);
    if (v / 2400.0F * 1000.0F != v * 1000.0F / 2400.0F) ++differs;
  }
  EXPECT_GT(differs, 0);
}

TEST(SizeScale, ABaseOfZeroGivesZero) {
  EXPECT_EQ(scaleToSize(1024, 10, {0, 2048}), 0.0F);
  EXPECT_EQ(scaleToSize(1024, -10, {2400, 0}), 0.0F);
  EXPECT_EQ(scaleToSize(1024, 0, {0, 0}), 1024.0F);
  EXPECT_EQ(scaleKerning(10, -10, 0), 0.0F);
  EXPECT_EQ(inEm(10, 0), 0.0F);
}

TEST(SizeScale, TheSmallestSizeIsNegatedWithoutOverflow) {
  EXPECT_EQ(scaleToSize(2048, INT_MIN, kBases), 2147483648.0F);
  EXPECT_EQ(scaleKerning(2048, INT_MIN, 2048), 2147483648.0F);
}

TEST(SizeScale, KerningScalesByTheEmAndOnlyDownwards) {
  EXPECT_EQ(scaleKerning(-64, -1000, 2048), -31.25F);
  EXPECT_EQ(scaleKerning(-64, 0, 2048), -64.0F);
  EXPECT_EQ(scaleKerning(-64, 1000, 2048), -64.0F);
}

TEST(SizeScale, LetterHeightsBelowOneAreUnknown) {
  EXPECT_EQ(letterHeightInEm(1024, 2048), 0.5F);
  EXPECT_EQ(letterHeightInEm(1, 2048), 1.0F / 2048.0F);
  EXPECT_EQ(letterHeightInEm(0, 2048), 0.0F);
  EXPECT_EQ(letterHeightInEm(-5, 2048), 0.0F);
  EXPECT_EQ(inEm(-512, 2048), -0.25F);
}

}  // namespace
}  // namespace QXFontService_NS::metrics
