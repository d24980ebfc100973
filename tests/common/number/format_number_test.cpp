#include "common/number/format_number.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace QXCommonNS::number {
namespace {

std::string real(double value) {
  std::string narrow;
  return formatReal(value).toUTF8String(narrow);
}

TEST(FormatReal, GivesTheShortestFormOfTheFloat) {
  EXPECT_EQ(real(.039625), "0.039625");
  EXPECT_EQ(real(0.1), "0.1");
  EXPECT_EQ(real(-12.5), "-12.5");
  EXPECT_EQ(real(1.0 / 3), "0.33333334");
  EXPECT_EQ(real(0.06), "0.06");
}

TEST(FormatReal, HasNeitherExponentNorNeedlessZeros) {
  EXPECT_EQ(real(1e-5), "0.00001");
  EXPECT_EQ(real(2.5e3), "2500");
  EXPECT_EQ(real(1e10), "10000000000");
  EXPECT_EQ(real(100), "100");
  EXPECT_EQ(real(1.50), "1.5");
}

TEST(FormatReal, OfZeroIsZero) {
  EXPECT_EQ(real(0), "0");
  EXPECT_EQ(real(-0.0), "0");
  EXPECT_EQ(real(1e-300), "0") << "no float is that small";
  EXPECT_EQ(real(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(FormatReal, ClampsToTheRangeOfFloats) {
  EXPECT_EQ(std::strtof(real(DBL_MAX).c_str(), nullptr), FLT_MAX);
  EXPECT_EQ(std::strtof(real(-HUGE_VAL).c_str(), nullptr), -FLT_MAX);
  EXPECT_EQ(std::strtof(real(1.4e-45).c_str(), nullptr), std::numeric_limits<float>::denorm_min());
}

TEST(FormatReal, ReadsBackToTheSameFloat) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> exponent(-30, 30);
  for (int i = 0; i < 2000; ++i) {
    const float value = std::pow(10.0f, exponent(random)) * (i % 2 == 0 ? 1.0f : -1.0f);
    const std::string text = real(static_cast<double>(value));
    ASSERT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
    ASSERT_EQ(text.find_first_of("eE"), std::string::npos) << text;
  }
}

TEST(FormatInteger, GivesDigits) {
  EXPECT_EQ(formatInteger(INT_MIN), UnicodeString(u"-2147483648"));
  EXPECT_EQ(formatInteger(0), UnicodeString(u"0"));
}

TEST(ToInteger, CutsTowardZeroAndClamps) {
  EXPECT_EQ(toInteger(1000 + 65535.0 / 65536), 1000);
  EXPECT_EQ(toInteger(-12.9), -12);
  EXPECT_EQ(toInteger(2147483647.5), INT_MAX);
  EXPECT_EQ(toInteger(1e300), INT_MAX);
  EXPECT_EQ(toInteger(-1e300), INT_MIN);
  EXPECT_EQ(toInteger(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace QXCommonNS::number
