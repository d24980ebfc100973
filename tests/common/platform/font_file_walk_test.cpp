#include "common/platform/font_file_walk.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

using Paths = std::vector<std::string>;
using qxtest::MemoryPlatform;

TEST(FontFileWalk, TakesFontAndMetricFilesOfAnyCase) {
  MemoryPlatform world;
  for (const char* name : {"a.ttf", "b.TTC", "c.otf", "d.dfont", "e.AFM", "f.pfm", "g.pfb",
                           "h.woff", "i", "j.ttf.gz", "k.otc"})
    world.file(std::string("/f/") + name, "");
  EXPECT_EQ(listFontFiles(world, {"/f"}),
            (Paths{"/f/a.ttf", "/f/b.TTC", "/f/c.otf", "/f/d.dfont", "/f/e.AFM", "/f/f.pfm"}));
}

TEST(FontFileWalk, PassesOverHiddenFoldersAndSystemThingsButNotHiddenFiles) {
  MemoryPlatform world;
  world.file("/f/.x.ttf", "").hidden("/f/.x.ttf").file("/f/.d/a.ttf", "").hidden("/f/.d");
  world.file("/f/s.ttf", "").system("/f/s.ttf").file("/f/sys/a.ttf", "").system("/f/sys");
  world.special("/f/pipe.ttf").folder("/f/folder.ttf").link("/f/gone.ttf", "/gone");
  EXPECT_EQ(listFontFiles(world, {"/f/"}), (Paths{"/f/.x.ttf"}));
}

TEST(FontFileWalk, FollowsLinksButNeverInALoop) {
  MemoryPlatform world;
  world.file("/f/a.ttf", "").link("/f/loop", "/f").link("/f/out", "/g").file("/g/b.ttf", "");
  world.link("/f/l.ttf", "/g/b.ttf").link("/g/back", "/f");
  EXPECT_EQ(listFontFiles(world, {"/f"}), (Paths{"/f/a.ttf", "/f/l.ttf", "/f/out/b.ttf"}));
}

TEST(FontFileWalk, GivesEachPathOnceSortedByCodeUnits) {
  MemoryPlatform world;
  world.file("/f/B.ttf", "").file("/f/a.ttf", "").file("/f/\xEF\xBC\xA1.ttf", "");
  world.file("/f/\xF0\x9F\x98\x80.ttf", "").file("/f/sub/c.ttf", "");
  EXPECT_EQ(listFontFiles(world, {"/f/sub", "/f", "/f/sub/", "/none"}),
            (Paths{"/f/B.ttf", "/f/a.ttf", "/f/sub/c.ttf", "/f/\xF0\x9F\x98\x80.ttf",
                   "/f/\xEF\xBC\xA1.ttf"}));
}

TEST(FontFileWalk, AFolderThatCannotBeListedGivesNothing) {
  MemoryPlatform world;
  world.file("/f/locked/a.ttf", "").unreadable("/f/locked").file("/f/b.ttf", "");
  EXPECT_EQ(listFontFiles(world, {"/f"}), (Paths{"/f/b.ttf"}));
}

TEST(FontFileWalk, StopsBelowSixtyFourLevels) {
  MemoryPlatform world;
  std::string folder = "/f";
  for (int level = 1; level < 64; ++level) folder += "/d";
  world.file(folder + "/in.ttf", "").file(folder + "/d/out.ttf", "");
  EXPECT_EQ(listFontFiles(world, {"/f"}), (Paths{folder + "/in.ttf"}));
}

/// Folders in folders, as links between folders make them: two in each, all different.
class EndlessFolders final : public MemoryPlatform {
 public:
  bool identity(const std::string&, FileIdentity& out) override {
    out = {1, ++lastNode_};
    return true;
  }
  bool listFolder(const std::string&, std::vector<FolderEntry>& out) override {
    ++listings_;
    out = {{"a", FileKind::folder}, {"b", FileKind::folder}};
    return true;
  }
  std::size_t listings_ = 0;

 private:
  std::uint64_t lastNode_ = 0;
};

TEST(FontFileWalk, ManyWaysThroughLinksComeToAnEnd) {
  EndlessFolders world;
  EXPECT_TRUE(listFontFiles(world, {"/f"}).empty());
  EXPECT_EQ(world.listings_, 100000u);
}

}  // namespace
}  // namespace QXCommonNS
