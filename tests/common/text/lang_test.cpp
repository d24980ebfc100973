#include "qxcommon/lang.h"

#include <gtest/gtest.h>

namespace QXCommonNS {
namespace {

/// Puts the process's locale back.
class QXLangTest : public testing::Test {
 protected:
  static void become(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    Locale::setDefault(locale, status);
    ASSERT_TRUE(U_SUCCESS(status));
  }
  void TearDown() override { become(before_); }

 private:
  Locale before_ = Locale::getDefault();
};

TEST_F(QXLangTest, DefaultLocaleEqualsTheConstantsItIsComparedWith) {
  for (const Locale& locale :
       {Locale::getTraditionalChinese(), Locale::getKorean(), Locale::getSimplifiedChinese()}) {
    become(locale);
    EXPECT_TRUE(QXLang::getDefaultLocale() == locale) << locale.getName();
  }
  EXPECT_FALSE(QXLang::getDefaultLocale() == Locale::getKorean());
}

TEST_F(QXLangTest, IsTheDefaultLanguageUnlessToldOtherwise) {
  become(Locale::getKorean());
  EXPECT_TRUE(QXLang().getLocale() == Locale::getKorean());
  EXPECT_TRUE(QXLang(Locale::getJapanese()).getLocale() == Locale::getJapanese());
}

TEST(QXLangID, TakesAnyNumber) {
  EXPECT_EQ(QXLang::LANGID_DEFAULT, 0u);
  EXPECT_EQ(static_cast<QXLang::LanguageID>(0xFFFFFFFFu), 0xFFFFFFFFu);
  static_assert(sizeof(QXLang::LanguageID) == 4);
}

}  // namespace
}  // namespace QXCommonNS
