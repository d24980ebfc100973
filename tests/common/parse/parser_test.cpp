#include "qxcommon/parser.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>

namespace QXCommonNS {
namespace {

QXValue parse(const char* text) {
  return QXParser::parse(UnicodeString::fromUTF8(text), QXTokenizer::TOKENIZER_DEFAULT);
}

struct Row {
  const char* text;
  QXValue::Tag tag;
  const char* content;  // as text
};

class ParsedText : public testing::TestWithParam<Row> {};

TEST_P(ParsedText, GivesAValue) {
  const QXValue value = parse(GetParam().text);
  EXPECT_EQ(value.getTag(), GetParam().tag);
  std::string content;
  EXPECT_EQ(value.toString().toUTF8String(content), GetParam().content);
}

INSTANTIATE_TEST_SUITE_P(
    QXParser, ParsedText,
    testing::Values(
        Row{"400", QXValue::TAG_INTEGER, "400"}, Row{"-5", QXValue::TAG_INTEGER, "-5"},
        Row{"+5", QXValue::TAG_INTEGER, "5"}, Row{"007", QXValue::TAG_INTEGER, "7"},
        Row{"-0", QXValue::TAG_INTEGER, "0"}, Row{" \t\r\n400 ", QXValue::TAG_INTEGER, "400"},
        Row{"2147483647", QXValue::TAG_INTEGER, "2147483647"},
        Row{"-2147483648", QXValue::TAG_INTEGER, "-2147483648"},
        Row{"57344", QXValue::TAG_INTEGER, "57344"}, Row{"0xE000", QXValue::TAG_INTEGER, "57344"},
        Row{"0x7fffFFFF", QXValue::TAG_INTEGER, "2147483647"},
        Row{"2147483648", QXValue::TAG_REAL, "2147483648"},
        Row{"-2147483649", QXValue::TAG_REAL, "-2147483648"},  // as a float
        Row{"0x80000000", QXValue::TAG_REAL, "2147483648"}, Row{"1.5", QXValue::TAG_REAL, "1.5"},
        Row{"5.", QXValue::TAG_REAL, "5"}, Row{"-.5", QXValue::TAG_REAL, "-0.5"},
        Row{"bold", QXValue::TAG_NAME, "bold"}, Row{"_a-b_9", QXValue::TAG_NAME, "_a-b_9"},
        Row{"E000", QXValue::TAG_NAME, "E000"}, Row{"  yes ", QXValue::TAG_NAME, "yes"},
        Row{"TRUE", QXValue::TAG_NAME, "TRUE"}, Row{"'yes'", QXValue::TAG_STRING, "yes"},
        Row{"\"a b\"", QXValue::TAG_STRING, "a b"}, Row{"''", QXValue::TAG_STRING, ""},
        Row{"\"it's\"", QXValue::TAG_STRING, "it's"},
        Row{"\"a\"\"b\"", QXValue::TAG_STRING, "a\"b"}, Row{"'a''b'", QXValue::TAG_STRING, "a'b"},
        Row{"", QXValue::TAG_NULL, ""}, Row{" \t\n", QXValue::TAG_NULL, ""},
        Row{"extra bold", QXValue::TAG_STRING, "extra bold"},
        Row{" 1 2 ", QXValue::TAG_STRING, "1 2"}, Row{"yes no", QXValue::TAG_STRING, "yes no"},
        Row{"'a' 'b'", QXValue::TAG_STRING, "'a' 'b'"}, Row{"'open", QXValue::TAG_STRING, "'open"},
        Row{"\"a\"\"", QXValue::TAG_STRING, "\"a\"\""}, Row{"1E5", QXValue::TAG_STRING, "1E5"},
        Row{"12ab", QXValue::TAG_STRING, "12ab"}, Row{"1.2.3", QXValue::TAG_STRING, "1.2.3"},
        Row{"0x", QXValue::TAG_STRING, "0x"}, Row{"0xG", QXValue::TAG_STRING, "0xG"},
        Row{"-0x10", QXValue::TAG_STRING, "-0x10"}, Row{"-", QXValue::TAG_STRING, "-"},
        Row{"U+4E00", QXValue::TAG_STRING, "U+4E00"}, Row{"50%", QXValue::TAG_STRING, "50%"},
        Row{"-bold", QXValue::TAG_STRING, "-bold"}, Row{"\u660E", QXValue::TAG_STRING, "\u660E"}));

TEST(QXParser, GivesTheAffirmativeWordsTheirNumbers) {
  EXPECT_EQ(parse("true").getNameValue(), 1517);
  EXPECT_EQ(parse(" yes\t").getNameValue(), 1628);
  for (const char* text : {"TRUE", "Yes", "no", "1", "'yes'", "yes yes"}) {
    const QXValue value = parse(text);
    EXPECT_FALSE(value.isName() && (value.getNameValue() == 1517 || value.getNameValue() == 1628))
        << text;
  }
}

TEST(QXParser, ClampsOverlongNumbers) {
  const std::string digits(1000, '9');
  EXPECT_EQ(parse(digits.c_str()).getTag(), QXValue::TAG_REAL);
  EXPECT_EQ(parse(digits.c_str()).getDoubleValue(), DBL_MAX);
  EXPECT_EQ(parse(digits.c_str()).getIntegerValue(), INT_MAX);
  EXPECT_EQ(parse(("0x" + std::string(1000, 'f')).c_str()).getDoubleValue(), DBL_MAX);
  EXPECT_EQ(parse((std::string(1000, '0') + "5").c_str()).getIntegerValue(), 5);
  EXPECT_EQ(parse(("0x" + std::string(1000, '0') + "5").c_str()).getTag(), QXValue::TAG_INTEGER);
}

TEST(QXParser, ReadsBackWhatIsQuoted) {
  for (const char* text : {"", "x", "a b", "\"", "\"\"", "a\"b", "'", "4"}) {
    const QXValue value(UnicodeString::fromUTF8(text), QXUNIT_NONE);
    const QXValue again =
        QXParser::parse(value.toQuotedString(QXUtil::QUOTE_DOUBLE), QXTokenizer::TOKENIZER_DEFAULT);
    EXPECT_TRUE(again == value) << text;
  }
}

}  // namespace
}  // namespace QXCommonNS
