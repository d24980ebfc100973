#include "common/platform/usual_font_folders.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

using Paths = std::vector<std::string>;
using qxtest::MemoryPlatform;

const Paths kOfTheSystem = {"/usr/share/fonts/", "/usr/local/share/fonts/"};

TEST(UsualFontFolders, AreTwoOfTheSystemAndTwoOfTheUser) {
  MemoryPlatform world;
  world.setEnvironment("HOME", "/home/a");
  EXPECT_EQ(usualFontFolders(world), (Paths{"/usr/share/fonts/", "/usr/local/share/fonts/",
                                            "/home/a/.local/share/fonts/", "/home/a/.fonts/"}));
}

TEST(UsualFontFolders, WithoutAHomeAreThoseOfTheSystem) {
  MemoryPlatform world;
  EXPECT_EQ(usualFontFolders(world), kOfTheSystem);
  world.setEnvironment("HOME", "");
  EXPECT_EQ(usualFontFolders(world), kOfTheSystem);
}

/// A font in each of the usual folders, and one somewhere else.
class SystemFontFiles : public testing::Test {
 protected:
  SystemFontFiles() {
    world_.setEnvironment("HOME", "/home/a");
    for (const char* path :
         {"/usr/share/fonts/t/a.ttf", "/usr/local/share/fonts/b.otf",
          "/home/a/.local/share/fonts/c.ttc", "/home/a/.fonts/d.afm", "/opt/fonts/e.ttf"})
      world_.file(path, "");
  }
  MemoryPlatform world_;
};

TEST_F(SystemFontFiles, AreThoseBelowTheUsualFoldersWhereNothingIsConfigured) {
  EXPECT_EQ(listSystemFontFiles(world_, {}),
            (Paths{"/home/a/.fonts/d.afm", "/home/a/.local/share/fonts/c.ttc",
                   "/usr/local/share/fonts/b.otf", "/usr/share/fonts/t/a.ttf"}));
}

TEST_F(SystemFontFiles, AreThoseOfTheConfigurationAloneWhereThereIsOne) {
  EXPECT_EQ(listSystemFontFiles(world_, {"/opt/fonts"}), (Paths{"/opt/fonts/e.ttf"}));
  EXPECT_EQ(listSystemFontFiles(world_, {"/none"}), Paths());
}

}  // namespace
}  // namespace QXCommonNS
