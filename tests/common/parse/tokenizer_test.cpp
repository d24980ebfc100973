#include "qxcommon/tokenizer.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>
#include <vector>

namespace QXCommonNS {
namespace {

QXTokenizer tokenizer(const char16_t* text) {
  return QXTokenizer(text, QXTokenizer::TOKENIZER_DEFAULT);
}

std::string utf8(const UnicodeString& text) {
  std::string narrow;
  return text.toUTF8String(narrow);
}

TEST(QXTokenizer, GivesSeparatedValuesToTheEnd) {
  QXTokenizer pieces = tokenizer(u"E000-E757, F8F0 ,x");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), "E000-E757");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), " F8F0 ") << "blanks stay";
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(L',')), "x");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(L',')), "");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), "");
}

TEST(QXTokenizer, GivesAnEmptyPieceBetweenTwoSeparators) {
  QXTokenizer pieces = tokenizer(u"a,,b");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), "a");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), "");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(u',')), "b");
}

TEST(QXTokenizer, GivesNothingOfAnEmptyText) {
  EXPECT_EQ(utf8(tokenizer(u"").nextSeparatedValue(u',')), "");
  EXPECT_EQ(utf8(tokenizer(u",").nextSeparatedValue(u',')), "");
  EXPECT_TRUE(tokenizer(u"").nextTokenValueExp().isNull());
  EXPECT_TRUE(tokenizer(u" \t\r\n").nextTokenValueExp().isNull());
}

TEST(QXTokenizer, SeparatesAtCharactersBeyondTheFirstPlane) {
  if (sizeof(wchar_t) < 4) GTEST_SKIP() << "no wchar_t holds such a character here";
  QXTokenizer pieces = tokenizer(u"a\U0001F600b");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(static_cast<wchar_t>(0x1F600))), "a");
  EXPECT_EQ(utf8(pieces.nextSeparatedValue(static_cast<wchar_t>(0x1F600))), "b");
}

TEST(QXTokenizer, GivesTokensOfAllKinds) {
  QXTokenizer tokens = tokenizer(u" 12 -1.5 0x10 bold 'a b' [ /Name 7");
  EXPECT_EQ(tokens.nextTokenValueExp().getIntegerValue(), 12);
  EXPECT_EQ(tokens.nextTokenValueExp().getDoubleValue(), -1.5);
  EXPECT_EQ(tokens.nextTokenValueExp().getIntegerValue(), 16);
  EXPECT_EQ(tokens.nextTokenValueExp().getNameValue(), QXName(u"bold").getNameEnum());
  EXPECT_EQ(utf8(tokens.nextTokenValueExp().toString()), "a b");
  EXPECT_EQ(utf8(tokens.nextTokenValueExp().toString()), "[");
  EXPECT_EQ(utf8(tokens.nextTokenValueExp().toString()), "/Name");
  EXPECT_EQ(tokens.nextTokenValueExp().getIntegerValue(), 7);
  EXPECT_TRUE(tokens.nextTokenValueExp().isNull());
  EXPECT_TRUE(tokens.nextTokenValueExp().isNull());
}

struct Number {
  const char16_t* text;
  QXValue::Tag tag;
  double value;
};

class TokenNumber : public testing::TestWithParam<Number> {};

TEST_P(TokenNumber, IsRead) {
  const QXValue value = tokenizer(GetParam().text).nextTokenValueExp();
  EXPECT_EQ(value.getTag(), GetParam().tag);
  EXPECT_EQ(value.getDoubleValue(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    QXTokenizer, TokenNumber,
    testing::Values(
        Number{u".039625", QXValue::TAG_REAL, .039625}, Number{u"-.5", QXValue::TAG_REAL, -.5},
        Number{u"1E-5", QXValue::TAG_REAL, 1e-5}, Number{u"2.5E3", QXValue::TAG_REAL, 2500},
        Number{u"1E3", QXValue::TAG_REAL, 1000}, Number{u"2e2", QXValue::TAG_REAL, 200},
        Number{u"0.", QXValue::TAG_REAL, 0}, Number{u"1000", QXValue::TAG_INTEGER, 1000},
        Number{u"-0", QXValue::TAG_INTEGER, 0},
        Number{u"99999999999", QXValue::TAG_REAL, 99999999999},
        Number{u"1E999", QXValue::TAG_REAL, DBL_MAX},
        Number{u"-1E999", QXValue::TAG_REAL, -DBL_MAX}, Number{u"1E-999", QXValue::TAG_REAL, 0},
        // What real numbers of damaged fonts may look like: no number.
        Number{u"1.2.3", QXValue::TAG_STRING, 0}, Number{u"1--5", QXValue::TAG_STRING, 0},
        Number{u"1E", QXValue::TAG_STRING, 0}, Number{u"1E-", QXValue::TAG_STRING, 0},
        Number{u"-", QXValue::TAG_STRING, 0}, Number{u".", QXValue::TAG_STRING, 0}));

TEST(QXTokenizer, MovesThroughAnyTextInAFewSteps) {
  const std::u16string parts = u"\"'\" ''x 0x .E-5 \"\"\" [";
  for (std::size_t start = 0; start < parts.size(); ++start) {
    std::u16string text;
    for (int i = 0; i < 50; ++i) text += parts.substr(start) + parts.substr(0, start);
    QXTokenizer tokens = tokenizer(text.c_str());
    std::size_t count = 0;
    while (!tokens.nextTokenValueExp().isNull()) ASSERT_LE(++count, text.size());
  }
}

}  // namespace
}  // namespace QXCommonNS
