#include "type1/text_metrics.h"

#include <gtest/gtest.h>

#include <climits>

#include "type1/metrics_scale.h"

namespace QXFontService_NS::type1 {
namespace {

TEST(MetricsScale, SizesOfTheEmAndOfTheBox) {
  EXPECT_EQ(scaledToSize(500, -10, 1334), 500.0F / 1000 * 10);
  EXPECT_EQ(scaledToSize(500, 10, 1334), 500.0F / 1334 * 10) << "the division first";
  EXPECT_EQ(scaledToSize(500, 0, 1334), 0);
  EXPECT_EQ(scaledToSize(500, 10, 0), 0);
  EXPECT_EQ(scaledToSize(500, INT_MIN, 0), 0.5F * 2147483648.0F);
}

TEST(MetricsScale, KerningIsScaledByNegativeSizesAlone) {
  EXPECT_EQ(scaledKerning(-80, -500), -40);
  EXPECT_EQ(scaledKerning(-80, 500), -80);
  EXPECT_EQ(scaledKerning(-80, 0), -80);
  EXPECT_EQ(scaledKerning(-1000, INT_MIN), -2147483648.0F);
}

TEST(StyleName, IsWhatTheFullNameHasBehindTheFamily) {
  EXPECT_EQ(styleName(u"Made", u"Made", u"Bold"), u"Bold");
  EXPECT_EQ(styleName(u"Made  Roman ", u"Made", u"Bold"), u"Roman");
  EXPECT_EQ(styleName(u"MadeRoman", u"Made", u"Bold"), u"Roman");
  EXPECT_EQ(styleName(u"Other", u"Made", u"Bold"), u"");
  EXPECT_EQ(styleName(u"", u"", u"Bold"), u"Bold");
  EXPECT_EQ(styleName(u"Made Roman", u"", u"Bold"), u"Made Roman");
}

}  // namespace
}  // namespace QXFontService_NS::type1
