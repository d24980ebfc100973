#include "qxcommon/unicode_range.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace QXCommonNS {
namespace {

bool parse(QXUnicodeRange& range, const char* text) {
  return range.parseUnicodeRange(QXValue(UnicodeString::fromUTF8(text), QXUNIT_NONE));
}

TEST(QXUnicodeRange, IsEmptyAtFirst) {
  const QXUnicodeRange range;
  for (const int code : {INT_MIN, -1, 0, 0x41, 0x10FFFF, INT_MAX})
    EXPECT_FALSE(range.inRange(code));
}

struct Good {
  const char* text;
  int first;  // the bounds of the first and last range: both are in, their outer neighbours not
  int last;
};

class UnicodeRangeList : public testing::TestWithParam<Good> {};

TEST_P(UnicodeRangeList, IsTaken) {
  QXUnicodeRange range;
  ASSERT_TRUE(parse(range, GetParam().text));
  EXPECT_TRUE(range.inRange(GetParam().first));
  EXPECT_TRUE(range.inRange(GetParam().last));
  EXPECT_FALSE(range.inRange(GetParam().first - 1));
  EXPECT_FALSE(range.inRange(GetParam().last + 1));
}

INSTANTIATE_TEST_SUITE_P(
    QXUnicodeRange, UnicodeRangeList,
    testing::Values(Good{"U+26", 0x26, 0x26}, Good{"u+4e00", 0x4E00, 0x4E00},
                    Good{"U+0-7F", 0, 0x7F}, Good{"U+0025-00FF", 0x25, 0xFF},
                    Good{"U+41-41", 0x41, 0x41}, Good{"U+4??", 0x400, 0x4FF},
                    Good{"U+10????", 0x100000, 0x10FFFF}, Good{"U+??", 0, 0xFF},
                    Good{"U+10FFFF", 0x10FFFF, 0x10FFFF}, Good{"U+0-10FFFF", 0, 0x10FFFF},
                    Good{"U+000041", 0x41, 0x41}, Good{"U+50,U+40", 0x40, 0x50},
                    Good{"U+40 U+50", 0x40, 0x50}, Good{"  U+40 ,\t\r\n, U+50, ", 0x40, 0x50},
                    Good{"U+40-60,U+50-55,U+58-70", 0x40, 0x70}));

class UnicodeRangeNoList : public testing::TestWithParam<const char*> {};

TEST_P(UnicodeRangeNoList, IsRefusedAndTheSetStays) {
  QXUnicodeRange range;
  ASSERT_TRUE(parse(range, "U+41"));
  EXPECT_FALSE(parse(range, GetParam()));
  EXPECT_TRUE(range.inRange(0x41));
  EXPECT_FALSE(range.inRange(0x42));
}

INSTANTIATE_TEST_SUITE_P(QXUnicodeRange, UnicodeRangeNoList,
                         testing::Values("", " ", ",", " , ", "U", "U+", "U+ 41", "41", "+41",
                                         "U41", "V+41", "U+G", "U+1234567", "U+0000041", "U+110000",
                                         "U+0-110000", "U+42-41", "U+41-", "U+41-U+42",
                                         "U+41 - U+42",
                                         "U+4?"
                                         "?-500",
                                         "U+400-5??", "U+4?1", "U+11????", "U+???????", "U+??????",
                                         "U+42;U+43", "U+42,x", "U+42-43-44", "U+42 U+"));

TEST(QXUnicodeRange, ASecondListReplacesTheFirst) {
  QXUnicodeRange range;
  ASSERT_TRUE(parse(range, "U+41"));
  ASSERT_TRUE(parse(range, "U+51"));
  EXPECT_FALSE(range.inRange(0x41));
  EXPECT_TRUE(range.inRange(0x51));
}

TEST(QXUnicodeRange, HoldsNothingBetweenItsRanges) {
  QXUnicodeRange range;
  ASSERT_TRUE(parse(range, "U+10-1F, U+30-3F, U+22"));
  const std::string expected =
      "0110"
      "0010";  // at 0x0F, 0x10, 0x1F, 0x20 and 0x21 to 0x24
  std::string found;
  for (const int code : {0x0F, 0x10, 0x1F, 0x20, 0x21, 0x23, 0x22, 0x24}) {
    found += range.inRange(code) ? '1' : '0';
  }
  EXPECT_EQ(found, expected);
}

TEST(QXUnicodeRange, TakesTextsAndNamesOnly) {
  QXUnicodeRange range;
  EXPECT_FALSE(range.parseUnicodeRange(QXValue()));
  EXPECT_FALSE(range.parseUnicodeRange(QXValue(41)));
  EXPECT_FALSE(range.parseUnicodeRange(QXValue(QXName(u"U").getNameEnum())));
  EXPECT_TRUE(range.parseUnicodeRange(QXValue(UnicodeString(u"U+41"), QXUNIT_NONE)));
}

TEST(QXUnicodeRange, TakesALongList) {
  std::string list;
  for (int i = 0; i < 20'000; ++i) list += "U+" + std::to_string(i % 10) + ",";
  QXUnicodeRange range;
  ASSERT_TRUE(parse(range, list.c_str()));
  EXPECT_TRUE(range.inRange(9));
  EXPECT_FALSE(range.inRange(10));
}

}  // namespace
}  // namespace QXCommonNS
