#include "pool/system/system_font_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/memory_platform.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::KnownFolder;

class SystemFontFolder : public testing::Test {
 protected:
  SystemFontFolder() : inPlace_(world) {}

  /// A system that knows its folders by number.
  void knowFolders() {
    world.setKnownFolder(KnownFolder::fonts, "/w/user");
    world.setKnownFolder(KnownFolder::system, "/w/system32");
    world.setKnownFolder(KnownFolder::windows, "/w/windows");
  }
  static std::string found() {
    std::string path;
    return systemFontFolder().toUTF8String(path);
  }

  qxtest::MemoryPlatform world;

 private:
  qxtest::PlatformInPlace inPlace_;
};

struct Probe {
  const char* file;
  const char* folder;
};

/// The places of "arial.ttf" in the order in which they are tried.
const std::vector<Probe> kProbes = {
    {"/w/user/arial.ttf", "/w/user/"},
    {"/w/Fonts/arial.ttf", "/w/Fonts/"},
    {"/w/windows/Fonts/arial.ttf", "/w/windows/Fonts/"},
    {"/WINDOWS/Fonts/arial.ttf", "/WINDOWS/Fonts/"},
};

TEST_F(SystemFontFolder, IsTheFirstOfTheKnownOnesThatHoldsArial) {
  knowFolders();
  world.folder("/w/system32");
  for (auto probe = kProbes.rbegin(); probe != kProbes.rend(); ++probe) {
    world.file(probe->file, "");
    EXPECT_EQ(found(), probe->folder);
  }
}

TEST_F(SystemFontFolder, WithoutArialIsTheKnownFontFolder) {
  knowFolders();
  EXPECT_EQ(found(), "/w/user/");
  world.folder("/w/user/arial.ttf");
  EXPECT_EQ(found(), "/w/user/") << "a folder of that name is no hit, and changes nothing";
}

TEST_F(SystemFontFolder, WithoutAKnownFontFolderTheOtherPlacesAreTriedAllTheSame) {
  world.setKnownFolder(KnownFolder::windows, "/w/windows");
  EXPECT_EQ(found(), "") << "there is no first place to fall back on";
  world.file("/w/windows/Fonts/arial.ttf", "");
  EXPECT_EQ(found(), "/w/windows/Fonts/");
}

TEST_F(SystemFontFolder, IsTheFirstCandidateThatIsAFolder) {
  world.addFontFolderCandidate("/a/").addFontFolderCandidate("/b").addFontFolderCandidate("/c/");
  world.file("/a", "").folder("/c");
  EXPECT_EQ(found(), "/c/");
  world.folder("/b");
  EXPECT_EQ(found(), "/b/") << "with its closing separator";
}

TEST_F(SystemFontFolder, IsEmptyWhereNoCandidateStands) {
  knowFolders();
  world.file("/w/user/arial.ttf", "").addFontFolderCandidate("/a/");
  EXPECT_EQ(found(), "") << "such a system is not probed";
}

}  // namespace
}  // namespace QXFontService_NS
