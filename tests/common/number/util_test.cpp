#include "qxcommon/util.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>

namespace QXCommonNS {
namespace {

struct Row {
  const char* text;
  double value;
  int length;
};

class ParseNumber : public testing::TestWithParam<Row> {};

TEST_P(ParseNumber, ReadsWideAndUtf16TextAlike) {
  const std::string narrow = GetParam().text;
  const std::wstring wide(narrow.begin(), narrow.end());
  const std::u16string utf16(narrow.begin(), narrow.end());
  const wchar_t* wideEnd = nullptr;
  const char16_t* utf16End = nullptr;
  EXPECT_EQ(QXUtil::parseNumber(wide.c_str(), &wideEnd, nullptr, nullptr), GetParam().value);
  EXPECT_EQ(QXUtil::parseNumber(utf16.c_str(), &utf16End, nullptr, nullptr), GetParam().value);
  EXPECT_EQ(wideEnd - wide.c_str(), GetParam().length);
  EXPECT_EQ(utf16End - utf16.c_str(), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(QXUtil, ParseNumber,
                         testing::Values(Row{"400", 400, 3}, Row{"50%", 50, 2}, Row{"50 %", 50, 2},
                                         Row{"-25%", -25, 3}, Row{"+1.5", 1.5, 4}, Row{".5", .5, 2},
                                         Row{"5.", 5, 2}, Row{"1.2.3", 1.2, 3}, Row{"1E5", 1, 1},
                                         Row{"1e-5", 1, 1}, Row{"0x10", 0, 1}, Row{"1,5", 1, 1},
                                         Row{"", 0, 0}, Row{"abc", 0, 0}, Row{" 5", 0, 0},
                                         Row{"-", 0, 0}, Row{".", 0, 0}, Row{"+.", 0, 0},
                                         Row{"--5", 0, 0}, Row{"5-", 5, 1}));

TEST(QXUtil, ParsesWithoutAnEnd) {
  EXPECT_EQ(QXUtil::parseNumber(u"12", nullptr, nullptr, nullptr), 12);
  const char16_t* end = u"";
  EXPECT_EQ(QXUtil::parseNumber(nullptr, &end, nullptr, nullptr), 0);
  EXPECT_EQ(end, nullptr);
}

TEST(QXUtil, ClampsOverlongNumbers) {
  const std::u16string digits(1000, u'9');
  const char16_t* end = nullptr;
  EXPECT_EQ(QXUtil::parseNumber(digits.c_str(), &end, nullptr, nullptr), DBL_MAX);
  EXPECT_EQ(end, digits.c_str() + digits.size());
}

TEST(QXUtil, TakesNoDigitsOfOtherScripts) {
  EXPECT_EQ(QXUtil::parseNumber(u"\u0665", nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(QXUtil::parseNumber(u"\uFF15", nullptr, nullptr, nullptr), 0);
  // 0x131 is "1" when cut to a byte.
  EXPECT_EQ(QXUtil::parseNumber(u"\u0131", nullptr, nullptr, nullptr), 0);
}

UnicodeString format(long long value) {
  return QXUtil::formatNumber(value, u"1", UnicodeString(), 0, QXLang(), QXNAME_NUMBER_FORMAT);
}

TEST(QXUtil, FormatsPlainDigits) {
  EXPECT_EQ(format(0), UnicodeString(u"0"));
  EXPECT_EQ(format(1930), UnicodeString(u"1930"));
  EXPECT_EQ(format(-5), UnicodeString(u"-5"));
  EXPECT_EQ(format(1234567), UnicodeString(u"1234567"));
  EXPECT_EQ(format(LLONG_MAX), UnicodeString(u"9223372036854775807"));
  EXPECT_EQ(format(LLONG_MIN), UnicodeString(u"-9223372036854775808"));
}

}  // namespace
}  // namespace QXCommonNS
