#include "qxcommon/lang.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS {
namespace {

/// A world that has nothing but a locale.
class LocalePlatform final : public FS_Platform {
 public:
  std::string name;

  std::unique_ptr<std::istream> openFile(const std::string&) override { return nullptr; }
  FileKind fileKind(const std::string&) override { return FileKind::none; }
  bool identity(const std::string&, FileIdentity&) override { return false; }
  bool listFolder(const std::string&, std::vector<FolderEntry>&) override { return false; }
  bool knownFolder(KnownFolder, std::string&) override { return false; }
  std::vector<std::string> fontFolderCandidates() override { return {}; }
  bool environment(const char*, std::string&) override { return false; }
  bool registryValues(RegistryRoot, std::string_view, std::vector<RegistryValue>&) override {
    return false;
  }
  std::vector<std::string> systemFontFiles() override { return {}; }
  std::string modulePath(std::string_view) override { return {}; }
  std::string localeName() override { return name; }
};

class QXLangTest : public testing::Test {
 protected:
  void SetUp() override { setPlatformForTests(&platform_); }
  void TearDown() override { setPlatformForTests(nullptr); }
  void become(const char* locale) { platform_.name = locale; }

 private:
  LocalePlatform platform_;
};

TEST_F(QXLangTest, DefaultLocaleEqualsTheConstantsItIsComparedWith) {
  become("zh_TW");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getTraditionalChinese());
  EXPECT_FALSE(QXLang::getDefaultLocale() == Locale::getSimplifiedChinese());
  become("ko_KR");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getKorea());
  EXPECT_FALSE(QXLang::getDefaultLocale() == Locale::getKorean()) << "that is \"ko\" alone";
  become("ko");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getKorean());
  become("zh_CN");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getSimplifiedChinese());
}

TEST_F(QXLangTest, TakesTheSpellingOfOtherSystems) {
  become("zh-TW");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getTraditionalChinese());
}

TEST_F(QXLangTest, IsIcusLocaleWhereThePlatformHasNone) {
  become("");
  EXPECT_TRUE(QXLang::getDefaultLocale() == Locale::getDefault());
}

TEST_F(QXLangTest, FollowsTheHostThatSetsIcusLocale) {
  become("");
  const Locale before = Locale::getDefault();
  UErrorCode status = U_ZERO_ERROR;
  Locale::setDefault(Locale::getJapan(), status);
  EXPECT_EQ(QXLang::getDefaultLocale().getLCID(), 0x411u);
  Locale::setDefault(before, status);
  EXPECT_TRUE(QXLang::getDefaultLocale() == before);
}

TEST_F(QXLangTest, IsTheDefaultLanguageUnlessToldOtherwise) {
  become("ko");
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
