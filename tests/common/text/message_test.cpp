#include "qxcommon/message.h"

#include <gtest/gtest.h>

#include "qxcommon/empty_string.h"

namespace QXCommonNS {
namespace {

std::string format(const char16_t* pattern, const char16_t* a0 = u"A", const char16_t* a1 = u"B",
                   const char16_t* a2 = u"C", const char16_t* a3 = u"D",
                   const char16_t* a4 = u"E") {
  const UnicodeString text = QXMessage(pattern, a0, a1, a2, a3, a4);
  std::string narrow;
  return text.toUTF8String(narrow);
}

TEST(QXMessage, FillsThePlaceholders) {
  EXPECT_EQ(format(u"{0} {1} {2} {3} {4}"), "A B C D E");
  EXPECT_EQ(format(u"{4}{0}{4}"), "EAE");
  EXPECT_EQ(format(u""), "");
  EXPECT_EQ(format(u"plain"), "plain");
}

TEST(QXMessage, DoesNotSearchWhatItFilledIn) {
  EXPECT_EQ(format(u"{0}|{1}", u"/fonts/{1}/{0}", u"{0}"), "/fonts/{1}/{0}|{0}");
  EXPECT_EQ(format(u"{{0}0}", u"0"), "{00}") << "a made-up placeholder is none";
  EXPECT_EQ(format(u"{0}1}", u"{"), "{1}");
}

TEST(QXMessage, LeavesOtherBracesAndApostrophesAlone) {
  EXPECT_EQ(format(u"{5} {-1} {} {a} {0 0} {00}"), "{5} {-1} {} {a} {0 0} {00}");
  EXPECT_EQ(format(u"'{0}' isn't '' {"), "'A' isn't '' {");
  EXPECT_EQ(format(u"{0"), "{0");
  EXPECT_EQ(format(u"}0{"), "}0{");
}

TEST(QXMessage, KeepsCharactersBeyondTheFirstPlane) {
  EXPECT_EQ(format(u"\U0001F600{0}", u"\U0001F601"), "\U0001F600\U0001F601");
}

TEST(QXEmptyString, IsEmpty) {
  EXPECT_TRUE(QXEmptyString::EMPTY_VALUE.isEmpty());
  EXPECT_FALSE(QXEmptyString::EMPTY_VALUE.isBogus());
}

}  // namespace
}  // namespace QXCommonNS
