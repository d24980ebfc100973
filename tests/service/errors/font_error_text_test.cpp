#include "service/errors/font_error_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "qxcommon/error.h"

namespace QXFontService_NS {
namespace {

std::string textOf(int code, const UnicodeString& detail) {
  std::string result;
  return FS_FontErrorText(code, detail).toUTF8String(result);
}

struct Row {
  int code;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.code;
}

const Row kRows[] = {
    {1921, "Font read error"},
    {1923, "Glyph-list open error"},
    {1924, "Glyph-list read error"},
    {1925, "Cannot read printer font"},
    {1926, "Cannot read font information"},
    {1928, "Font file error"},
    {1929, "Font file error"},
    {1930, "Already registered font-face font with different font-weight/style"},
    {1931, "Cannot open font-face font"},
    {1932, "Cannot create font-face font"},
    {1933, "Cannot read font-face font information"},
    {1943, "Unsupported font"},
    {1944, "Unsupported font-face font"},
    {1945, "Unembeddable font-face font"},
};

class FontErrorTextRow : public testing::TestWithParam<Row> {};

TEST_P(FontErrorTextRow, EndsInAPointWithoutDetail) {
  EXPECT_EQ(textOf(GetParam().code, u""), std::string(GetParam().text) + ".");
}

TEST_P(FontErrorTextRow, EndsInTheDetailWithoutAPoint) {
  EXPECT_EQ(textOf(GetParam().code, u"x"), std::string(GetParam().text) + ": x");
}

INSTANTIATE_TEST_SUITE_P(Rows, FontErrorTextRow, testing::ValuesIn(kRows));

TEST(FontErrorText, OtherCodesHaveOneTextInCommon) {
  for (const int code : {0, 1024, 1027, 1920, 1922, 1927, 1934, 1935, 1936, 1937, 1938, 1939, 1940,
                         1941, 1942, 1946, -1})
    EXPECT_EQ(textOf(code, u""), "FontService unknown error.") << code;
  EXPECT_EQ(textOf(1927, u"x"), "FontService unknown error: x");
}

TEST(FontErrorText, AFinalPointOfTheDetailStays) {
  EXPECT_EQ(textOf(1928, u"Invalid WOFF header."), "Font file error: Invalid WOFF header.");
}

TEST(FontErrorText, TheRecordHoldsTextLineFeedAndPath) {
  const QXError error = makeFontError(1921, u"Offset table read error", u"/fonts/a.ttf");
  EXPECT_EQ(error.getErrorCode(), 1921);
  EXPECT_TRUE(error.getErrorMessage() == u"Font read error: Offset table read error\n/fonts/a.ttf");
  EXPECT_TRUE(error.getSecondText().isEmpty());
  EXPECT_TRUE(error.getThirdText().isEmpty());
  EXPECT_EQ(error.getFirstNumber(), -1);
  EXPECT_EQ(error.getSecondNumber(), -1);
}

TEST(FontErrorText, TheRecordOfAFileWithoutLocalPathEndsInTheLineFeed) {
  EXPECT_TRUE(makeFontError(1921, u"", u"").getErrorMessage() == u"Font read error.\n");
}

}  // namespace
}  // namespace QXFontService_NS
