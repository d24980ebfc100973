#include "common/number/decimal.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <locale>
#include <string>

namespace QXCommonNS::number {
namespace {

constexpr std::size_t kNone = 0;

std::size_t lengthOf(std::string_view text, Exponent exponent) {
  return scanDecimal(text.data(), text.size(), exponent).length;
}

TEST(Decimal, IsFoundAtTheStartOfAText) {
  EXPECT_EQ(lengthOf("12.5%", Exponent::none), 4u);
  EXPECT_EQ(lengthOf("-.5", Exponent::none), 3u);
  EXPECT_EQ(lengthOf("5.", Exponent::none), 2u);
  EXPECT_EQ(lengthOf("1.2.3", Exponent::none), 3u);
  EXPECT_EQ(lengthOf("+7x", Exponent::none), 2u);
}

TEST(Decimal, IsMissingWithoutADigit) {
  for (const char* text : {"", "+", "-", ".", "-.", "e5", " 5", "x5", "--5", "%"}) {
    EXPECT_EQ(lengthOf(text, Exponent::none), kNone) << text;
    EXPECT_EQ(lengthOf(text, Exponent::allowed), kNone) << text;
  }
}

TEST(Decimal, TakesAnExponentOnlyWhereAllowed) {
  EXPECT_EQ(lengthOf("1E5", Exponent::none), 1u);
  EXPECT_EQ(lengthOf("1E5", Exponent::allowed), 3u);
  EXPECT_EQ(lengthOf("1e-5", Exponent::allowed), 4u);
  EXPECT_EQ(lengthOf("1e+05", Exponent::allowed), 5u);
  EXPECT_EQ(lengthOf("1E", Exponent::allowed), 1u) << "no digit follows";
  EXPECT_EQ(lengthOf("1E-", Exponent::allowed), 1u);
  EXPECT_EQ(lengthOf("1E-x", Exponent::allowed), 1u);
}

TEST(Decimal, IsIntegralWithoutPointAndExponent) {
  EXPECT_TRUE(scanDecimal("-12", 3, Exponent::allowed).integral);
  EXPECT_FALSE(scanDecimal("12.", 3, Exponent::allowed).integral);
  EXPECT_FALSE(scanDecimal("1E2", 3, Exponent::allowed).integral);
  EXPECT_TRUE(scanDecimal("1E2", 3, Exponent::none).integral);
}

TEST(Decimal, NeverLooksBehindTheEnd) {
  const std::string text = "12.5E-3";
  const std::size_t lengths[] = {0, 1, 2, 3, 4, 4, 4, 7};
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string cut(text.data(), size);
    EXPECT_EQ(lengthOf(std::string_view(cut), Exponent::allowed), lengths[size]) << cut;
  }
}

struct Amount {
  const char* text;
  double value;
};

class DecimalAmount : public testing::TestWithParam<Amount> {};

TEST_P(DecimalAmount, IsRead) {
  EXPECT_EQ(toDouble(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, DecimalAmount,
    testing::Values(Amount{"0", 0}, Amount{"-0", 0}, Amount{".039625", .039625},
                    Amount{"-12.5", -12.5}, Amount{"+3", 3}, Amount{"1E-5", 1e-5},
                    Amount{"2.5E3", 2500}, Amount{" \t\n\v\f\r7 8", 7}, Amount{"1,5", 1},
                    Amount{"", 0}, Amount{"abc", 0}, Amount{"inf", 0}, Amount{"nan", 0},
                    Amount{"0x10", 0}, Amount{"1e400", DBL_MAX}, Amount{"-1e400", -DBL_MAX},
                    Amount{"1e-400", 0}, Amount{"-1e-400", 0}, Amount{"0e400", 0},
                    Amount{"1e99999999999999999999", DBL_MAX}, Amount{"1e-99999999999999999999", 0},
                    Amount{"0.001e400", DBL_MAX}, Amount{"0000.0e99999999999999999999", 0}));

TEST(Decimal, ClampsOverlongDigits) {
  const std::string digits(500, '9');
  EXPECT_EQ(toDouble(digits), DBL_MAX);
  EXPECT_EQ(toDouble("-" + digits), -DBL_MAX);
  EXPECT_EQ(toDouble("0." + std::string(500, '0') + "1"), 0);
  EXPECT_EQ(toDouble(std::string(500, '0') + "1.5"), 1.5);
  EXPECT_EQ(toDouble("0." + std::string(400, '0') + "1e401"), 1.0);
}

TEST(Decimal, ReadsIntegersLikeAtoi) {
  EXPECT_EQ(toInt("42"), 42);
  EXPECT_EQ(toInt("  -7x"), -7);
  EXPECT_EQ(toInt("+8"), 8);
  EXPECT_EQ(toInt("12.9"), 12);
  EXPECT_EQ(toInt(""), 0);
  EXPECT_EQ(toInt("x"), 0);
  EXPECT_EQ(toInt("+-5"), 0);
  EXPECT_EQ(toInt("--5"), 0);
}

TEST(Decimal, ClampsIntegersTo32Bits) {
  EXPECT_EQ(toInt("2147483647"), INT_MAX);
  EXPECT_EQ(toInt("2147483648"), INT_MAX);
  EXPECT_EQ(toInt("-2147483648"), INT_MIN);
  EXPECT_EQ(toInt("-2147483649"), INT_MIN);
  EXPECT_EQ(toInt(std::string(100, '9')), INT_MAX);
  EXPECT_EQ(toInt("-" + std::string(100, '9')), INT_MIN);
}

/// German habits: a comma before the fraction, a point between the thousands.
class CommaPunctuation : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(Decimal, IgnoresTheLocaleOfTheProcess) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
  const std::string before_c = std::setlocale(LC_NUMERIC, nullptr);
  // Where no such locale is installed the C library stays as it is; the C++ one has changed.
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"}) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr) break;
  }
  const double read = toDouble("1234.5");
  std::setlocale(LC_NUMERIC, before_c.c_str());
  std::locale::global(before);
  EXPECT_EQ(read, 1234.5);
}

}  // namespace
}  // namespace QXCommonNS::number
