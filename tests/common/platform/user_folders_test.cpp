#include "common/platform/user_folders.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

class UserFolders : public testing::Test {
 protected:
  /// The folder that is told; "none" where none is.
  std::string told(KnownFolder which) {
    std::string out = "none";
    const bool known = xdgFolder(world, which, out);
    EXPECT_EQ(known, out != "none");
    return out;
  }

  qxtest::MemoryPlatform world;
};

TEST_F(UserFolders, AreTheXdgDefaultsBelowHome) {
  world.setEnvironment("HOME", "/home/a");
  EXPECT_EQ(told(KnownFolder::roamingData), "/home/a/.config");
  EXPECT_EQ(told(KnownFolder::localData), "/home/a/.local/share");
  EXPECT_EQ(told(KnownFolder::commonData), "/usr/share");
}

TEST_F(UserFolders, AreThoseOfTheVariablesWithoutAClosingSeparator) {
  world.setEnvironment("HOME", "/home/a");
  world.setEnvironment("XDG_CONFIG_HOME", "/c/").setEnvironment("XDG_DATA_HOME", "/d//");
  EXPECT_EQ(told(KnownFolder::roamingData), "/c");
  EXPECT_EQ(told(KnownFolder::localData), "/d");
  EXPECT_EQ(told(KnownFolder::commonData), "/usr/share");
  world.setEnvironment("XDG_DATA_HOME", "/");
  EXPECT_EQ(told(KnownFolder::localData), "/");
}

TEST_F(UserFolders, RelativeAndEmptyVariablesAreIgnored) {
  world.setEnvironment("HOME", "/home/a/");
  for (const char* value : {"", "c", "./c", "~/c"}) {
    world.setEnvironment("XDG_CONFIG_HOME", value).setEnvironment("XDG_DATA_HOME", value);
    EXPECT_EQ(told(KnownFolder::roamingData), "/home/a/.config") << value;
    EXPECT_EQ(told(KnownFolder::localData), "/home/a/.local/share") << value;
  }
}

TEST_F(UserFolders, WithoutAHomeAreNoneButThoseOfVariables) {
  EXPECT_EQ(told(KnownFolder::roamingData), "none");
  EXPECT_EQ(told(KnownFolder::localData), "none");
  EXPECT_EQ(told(KnownFolder::commonData), "/usr/share");
  world.setEnvironment("HOME", "").setEnvironment("XDG_DATA_HOME", "/d");
  EXPECT_EQ(told(KnownFolder::roamingData), "none");
  EXPECT_EQ(told(KnownFolder::localData), "/d");
}

TEST_F(UserFolders, FoldersOfWindowsAloneAreNone) {
  world.setEnvironment("HOME", "/home/a");
  for (const KnownFolder which : {KnownFolder::fonts, KnownFolder::windows, KnownFolder::system})
    EXPECT_EQ(told(which), "none");
}

}  // namespace
}  // namespace QXCommonNS
