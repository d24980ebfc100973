#include "pool/settings/font_folders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace QXFontService_NS {
namespace {

class Folders : public testing::Test {
 protected:
  FS_FontFolder* add(const char16_t* path, const FS_FontFolder* behind = nullptr,
                     bool skipScan = false) {
    return folders.add(std::make_unique<FS_FontFolder>(path, static_cast<unsigned char>(0), false),
                       behind, skipScan);
  }
  FS_FontFolder* find(const char16_t* path) const {
    return folders.find(QXUri(path, QXCommonNS::URISTR_USER));
  }
  [[nodiscard]] std::vector<std::string> list() const {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < folders.size(); ++i) {
      std::string path;
      paths.push_back(folders[i].getText().toUTF8String(path));
    }
    return paths;
  }

  FontFolders folders;
};

using Paths = std::vector<std::string>;

TEST_F(Folders, StandInTheOrderGivenOrBehindAnother) {
  EXPECT_TRUE(folders.empty());
  const FS_FontFolder* a = add(u"/a");
  add(u"/b");
  const FS_FontFolder* a1 = add(u"/a/1", a);
  add(u"/a/2", a1);
  add(u"/a/0", a);
  EXPECT_EQ(list(), (Paths{"/a/", "/a/0/", "/a/1/", "/a/2/", "/b/"}));
}

TEST_F(Folders, BehindOneThatIsNoneOfThemStandAtTheEnd) {
  const FS_FontFolder stranger(u"/s", 0, false);
  add(u"/a");
  add(u"/b", &stranger);
  EXPECT_EQ(list(), (Paths{"/a/", "/b/"}));
}

TEST_F(Folders, AreOneWithoutRegardToCaseAndClosingSeparator) {
  FS_FontFolder* first = add(u"/Fonts/A");
  for (const char16_t* path : {u"/fonts/a", u"/FONTS/A/", u"/fonts//x/../a/."}) {
    EXPECT_EQ(find(path), first);
    EXPECT_EQ(add(path), nullptr);
  }
  EXPECT_EQ(list(), Paths{"/Fonts/A/"}) << "in the spelling that came first";
  EXPECT_EQ(find(u"/fonts"), nullptr);
  EXPECT_EQ(find(u""), nullptr);
}

TEST_F(Folders, ThatOnlyHoldAFileAreScannedOnceTheyAreMeantToBe) {
  FS_FontFolder* folder = add(u"/a", nullptr, true);
  EXPECT_EQ(folder->skipScan, 1);
  EXPECT_EQ(add(u"/a", nullptr, true), nullptr);
  EXPECT_EQ(folder->skipScan, 1);
  EXPECT_EQ(add(u"/a", nullptr, false), nullptr);
  EXPECT_EQ(folder->skipScan, 0);
  EXPECT_EQ(add(u"/a", nullptr, true), nullptr);
  EXPECT_EQ(folder->skipScan, 0) << "never back";
}

TEST_F(Folders, AreForgottenWhenTheyAreCleared) {
  add(u"/a");
  folders.clear();
  EXPECT_TRUE(folders.empty());
  EXPECT_EQ(find(u"/a"), nullptr);
  EXPECT_NE(add(u"/a"), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS
