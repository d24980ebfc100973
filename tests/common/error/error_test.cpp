#include "qxcommon/error.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace QXCommonNS {
namespace {

TEST(QXError, IsNoErrorByDefault) {
  const QXError error;
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_TRUE(error.getErrorMessage().isEmpty());
  EXPECT_TRUE(error.getSecondText().isEmpty());
  EXPECT_EQ(error.getFirstNumber(), -1);
  EXPECT_EQ(error.getSecondNumber(), -1);
  EXPECT_TRUE(error.getThirdText().isEmpty());
}

TEST(QXError, KeepsItsFields) {
  const QXError error(1921, u"message", u"second", 3, 4, u"third");
  const QXError copy(error);
  QXError assigned;
  assigned = copy;
  EXPECT_EQ(assigned.getErrorCode(), 1921);
  EXPECT_EQ(assigned.getErrorMessage(), UnicodeString(u"message"));
  EXPECT_EQ(assigned.getSecondText(), UnicodeString(u"second"));
  EXPECT_EQ(assigned.getFirstNumber(), 3);
  EXPECT_EQ(assigned.getSecondNumber(), 4);
  EXPECT_EQ(assigned.getThirdText(), UnicodeString(u"third"));
}

TEST(QXError, SettingTheCodeKeepsTheMessage) {
  QXError error(1921, u"message", u"", -1, -1, u"");
  error.setErrorCode(0);
  EXPECT_EQ(error.getErrorCode(), 0);
  EXPECT_EQ(error.getErrorMessage(), UnicodeString(u"message"));
}

TEST(QXError, IsThrownAndCaughtByValueAndReference) {
  static_assert(std::has_virtual_destructor_v<QXError>);
  static_assert(!std::is_base_of_v<std::exception, QXError>);
  try {
    throw QXError(1026, u"thrown", u"", -1, -1, u"");
  } catch (const QXError& error) {
    EXPECT_EQ(error.getErrorCode(), 1026);
    EXPECT_EQ(error.getErrorMessage(), UnicodeString(u"thrown"));
  }
}

TEST(ErrorLevel, IsThatOfCollectedErrorsFrom1920To1946) {
  for (unsigned short code = 1920; code <= 1946; ++code) {
    EXPECT_EQ(getErrorLevel(code), 896) << code;
    EXPECT_EQ(getErrorLevel(code), QXERRORLEVEL_COLLECT) << code;
  }
}

TEST(ErrorLevel, IsZeroFrom1024To1035) {
  for (unsigned short code = 1024; code <= 1035; ++code) EXPECT_EQ(getErrorLevel(code), 0) << code;
}

TEST(ErrorLevel, IsMadeOfTheBits7To9) {
  EXPECT_EQ(getErrorLevel(0), 0);
  EXPECT_EQ(getErrorLevel(128), 128);
  EXPECT_EQ(getErrorLevel(0xFFFF), 896);
  EXPECT_EQ(getErrorLevel(0xFC7F), 0);
}

}  // namespace
}  // namespace QXCommonNS
