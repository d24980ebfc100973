#include "qxfont/cli/folder_walk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "qxfont/cli/temporary_folder.h"

namespace qxfont {
namespace {

namespace files = std::filesystem;
using Paths = std::vector<std::string>;

class FolderWalkTest : public testing::Test {
 protected:
  [[nodiscard]] std::string path(const std::string& name) const {
    return folder_.path() + "/" + name;
  }
  void write(const std::string& name) const { std::ofstream(path(name)) << "x"; }

 private:
  TemporaryFolder folder_;
};

TEST_F(FolderWalkTest, listsFilesBelowInOneOrder) {
  files::create_directories(path("b/c"));
  for (const char* name : {"z", "b/c/1", "b/2", "a"}) write(name);
  EXPECT_EQ(walkFolder(path("")).files, (Paths{path("a"), path("b/2"), path("b/c/1"), path("z")}));
}

TEST_F(FolderWalkTest, anEmptyFolderHasNothing) {
  const FolderContent content = walkFolder(path(""));
  EXPECT_TRUE(content.files.empty());
  EXPECT_TRUE(content.unreadable.empty());
}

TEST_F(FolderWalkTest, linksInCirclesEndAndAFolderIsListedOnce) {
  files::create_directories(path("a/b"));
  write("a/b/1");
  files::create_directory_symlink(path("a"), path("a/b/up"));
  files::create_directory_symlink(path("a/b"), path("a/again"));
  EXPECT_EQ(walkFolder(path("")).files.size(), 1u);
}

TEST_F(FolderWalkTest, whatIsNoFolderIsGivenAsAFile) {
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  files::create_symlink(path("nowhere"), path("dangling"));
  EXPECT_EQ(walkFolder(path("")).files, (Paths{path("dangling"), path("pipe")}));
}

TEST_F(FolderWalkTest, aFolderThatCannotBeListedIsTold) {
  EXPECT_EQ(walkFolder(path("gone")).unreadable, Paths{path("gone")});
}

}  // namespace
}  // namespace qxfont
