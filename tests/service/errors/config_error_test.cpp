#include "service/errors/config_error.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "qxcommon/error.h"
#include "qxfontservice/error_codes.h"

#include "service/errors/error_sink.h"

namespace QXFontService_NS {
namespace {

std::string utf8(const UnicodeString& text) {
  std::string result;
  return text.toUTF8String(result);
}

class ListSink final : public ErrorSink {
 public:
  ListSink() { setErrorSink(this); }
  ~ListSink() { setErrorSink(nullptr); }
  ListSink(const ListSink&) = delete;
  ListSink& operator=(const ListSink&) = delete;
  void append(const QXError& error) override { errors.push_back(error); }

  std::vector<QXError> errors;
};

/// The errors a call threw and collected, as code and text.
struct Report {
  int thrown = 0;
  int collected = 0;
  std::string text;
};

Report reportOf(int code) {
  ListSink sink;
  Report report;
  try {
    FS_ConfigError(code, u"A", u"B", u"C", u"D");
  } catch (const QXError& error) {
    report.thrown = error.getErrorCode();
    report.text = utf8(error.getErrorMessage());
  }
  for (const QXError& error : sink.errors) {
    report.collected = error.getErrorCode();
    report.text += utf8(error.getErrorMessage());
  }
  return report;
}

struct Row {
  int code;
  bool collected;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.code;
}

const Row kRows[] = {
    {1025, false, "A is not specified."},
    {1026, false, "FontConfig file is not found: A"},
    {1027, false, "No <font-folder> in A"},
    {1028, false, "Unexpected start tag: <A> in B"},
    {1029, false, "Unexpected end tag: </A> in B"},
    {1035, false, "Invalid font file extension: <A B=\"C\"> in D"},
    {1935, true, "Unknown attribute: <A C> in D"},
    {1936, true, "Invalid value: <A B=\"C\"> in D"},
    {1937, true, "Empty value: <A B> in C"},
    {1938, true, "No-file path is not allowed: <A B=\"C\"> in D"},
    {1939, true, "Relative path is not allowed: <A B=\"C\"> in D"},
    {1940, true, "Already registered value: <A B=\"C\"> in D"},
    {1941, true, "Font file must be base file name: <A B=\"C\"> in D"},
    {1942, true, "Not an integer value: <A B=\"C\"> in D"},
};

class ConfigErrorRow : public testing::TestWithParam<Row> {};

TEST_P(ConfigErrorRow, HasItsTextAndIsThrownOrCollectedByItsLevel) {
  const Row row = GetParam();
  const Report report = reportOf(row.code);
  EXPECT_EQ(report.text, row.text);
  EXPECT_EQ(report.thrown, row.collected ? 0 : row.code);
  EXPECT_EQ(report.collected, row.collected ? row.code : 0);
}
INSTANTIATE_TEST_SUITE_P(Rows, ConfigErrorRow, testing::ValuesIn(kRows));

TEST(ConfigError, ACodeWithoutTextIsReportedAsTheServiceErrorWithItsNumber) {
  for (const int code : {1030, 1031, 1032, 1033, 1034, 0, 1, 1921, 1928, 1943, 1945, 65535}) {
    const Report report = reportOf(code);
    EXPECT_EQ(report.thrown, 1024) << code;
    EXPECT_EQ(report.collected, 0) << code;
    EXPECT_EQ(report.text, "FontServiceModule error: " + std::to_string(code));
  }
}

TEST(ConfigError, TheServiceErrorItselfHasNoTextOfItsOwn) {
  EXPECT_EQ(reportOf(1024).text, "FontServiceModule error: 1024");
}

TEST(ConfigError, UnusedFieldsOfTheRecordAreEmptyAndMinusOne) {
  const QXError error = makeConfigError(FS_ERROR_NO_FONT_FOLDER, u"x", u"", u"", u"");
  EXPECT_TRUE(error.getSecondText().isEmpty());
  EXPECT_TRUE(error.getThirdText().isEmpty());
  EXPECT_EQ(error.getFirstNumber(), -1);
  EXPECT_EQ(error.getSecondNumber(), -1);
}

TEST(ConfigError, BracesInAnArgumentStayAsTheyAre) {
  const QXError error = makeConfigError(FS_ERROR_UNEXPECTED_START_TAG, u"{1}", u"path", u"", u"");
  EXPECT_EQ(utf8(error.getErrorMessage()), "Unexpected start tag: <{1}> in path");
}

TEST(ConfigError, CollectedErrorsStandInOrderOfOccurrence) {
  ListSink sink;
  FS_ConfigError(1940, u"a", u"b", u"c", u"d");
  FS_ConfigError(1936, u"a", u"b", u"c", u"d");
  FS_ConfigError(1940, u"a", u"b", u"c", u"d");
  ASSERT_EQ(sink.errors.size(), 3U);
  EXPECT_EQ(sink.errors[0].getErrorCode(), 1940);
  EXPECT_EQ(sink.errors[1].getErrorCode(), 1936);
  EXPECT_EQ(sink.errors[2].getErrorCode(), 1940);
}

TEST(ConfigError, WithoutASinkCollectedErrorsAreDropped) {
  EXPECT_NO_THROW(FS_ConfigError(1936, u"a", u"b", u"c", u"d"));
}

TEST(ConfigError, WithoutASinkTheOthersAreThrownAllTheSame) {
  EXPECT_THROW(FS_ConfigError(1027, u"a", u"b", u"c", u"d"), QXError);
}

}  // namespace
}  // namespace QXFontService_NS
