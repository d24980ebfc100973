#include "qxfontservice/cstr.h"

#include <gtest/gtest.h>

namespace QXFontService_NS {
namespace {

using icu::UnicodeString;

TEST(QXCStr, KeepsTheTextInUtf8) {
  const QXCStr text(UnicodeString(u"/fonts/\u660E\u671D\U0001F600.ttf"));
  EXPECT_STREQ(text.c_str(), "/fonts/\u660E\u671D\U0001F600.ttf");
  EXPECT_EQ(text, UnicodeString(u"/fonts/\u660E\u671D\U0001F600.ttf"));
}

TEST(QXCStr, IsMadeFromUtf8) {
  const QXCStr text("\u660E.ttf");
  EXPECT_EQ(text, UnicodeString(u"\u660E.ttf"));
  EXPECT_STREQ(text.c_str(), "\u660E.ttf");
}

TEST(QXCStr, KeepsBytesThatAreNoUtf8ForTheFileSystem) {
  const QXCStr text("a\xFF.ttf");
  EXPECT_STREQ(text.c_str(), "a\xFF.ttf");
  EXPECT_EQ(text, UnicodeString(u"a\uFFFD.ttf"));
}

TEST(QXCStr, IsEmptyWithoutAText) {
  EXPECT_STREQ(QXCStr().c_str(), "");
  EXPECT_TRUE(QXCStr(static_cast<const char*>(nullptr)).isEmpty());
  EXPECT_STREQ(QXCStr(static_cast<const char*>(nullptr)).c_str(), "");
}

TEST(QXCStr, CopiesBothForms) {
  const QXCStr text("a.ttf");
  const QXCStr copy(text);
  EXPECT_STREQ(copy.c_str(), "a.ttf");
  EXPECT_EQ(copy, UnicodeString(u"a.ttf"));
}

TEST(QXCStr, ReplacesLoneSurrogates) {
  EXPECT_STREQ(QXCStr(UnicodeString(static_cast<char16_t>(0xD800))).c_str(), "\uFFFD");
}

}  // namespace
}  // namespace QXFontService_NS
