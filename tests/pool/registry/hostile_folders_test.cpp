#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "common/limits.h"
#include "pool/fake_font.h"
#include "pool/registry/registry_fixture.h"
#include "support/truncation.h"

namespace QXFontService_NS {
namespace {

using qxtest::namedFont;
namespace limits = QXCommonNS::limits;

class HostileFolders : public qxtest::RegistryTest {};

TEST_F(HostileFolders, AllGoodFontsAreServedAmongEveryKindOfTrouble) {
  const std::string bad = namedFont(u"Bad");
  int number = 0;
  const auto add = [&](const std::string& name, const std::string& bytes) {
    world.file("/f/" + std::to_string(100 + number++) + name, bytes);
  };
  for (std::size_t size = 0; size < bad.size(); size += 41) add(".ttf", bad.substr(0, size));
  for (const char* extension : {".afm", ".pfm", ".ttc", ".dfont", ".woff", ".otf"}) {
    add(extension, "");
    add(extension, std::string(300, '\xFF'));
    add(extension, bad.substr(0, 200));
  }
  world.special("/f/0pipe.ttf").special("/f/500pipe.ttf").folder("/f/0folder.ttf");
  world.file("/f/1locked.ttf", bad).unreadable("/f/1locked.ttf");
  world.file("/f/2sub/x.ttf", bad).unreadable("/f/2sub");
  world.link("/f/3self", "/f").link("/f/4self.ttf", "/f/4self.ttf").link("/f/5gone.ttf", "/gone");
  world.link("/f/6a", "/f/6b").link("/f/6b", "/f/6a");
  world.file("/f/000first.ttf", namedFont(u"First")).file("/f/150mid.ttf", namedFont(u"Mid"));
  world.file("/f/sub/last.ttf", namedFont(u"Last")).link("/f/sub/up", "/f");
  world.file("/g/next.ttf", namedFont(u"Next"));
  open("<font-folder path=\"/f\" recursive=\"yes\"/><font-folder path=\"/g\"/>");
  EXPECT_EQ(fileOf(u"First"), "/f/000first.ttf");
  EXPECT_EQ(fileOf(u"Mid"), "/f/150mid.ttf");
  EXPECT_EQ(fileOf(u"Last"), "/f/sub/last.ttf");
  EXPECT_EQ(fileOf(u"Next"), "/g/next.ttf");
  EXPECT_EQ(world.openStreams(), 0U);
}

TEST_F(HostileFolders, EachDamageOfAFontLeavesTheFontBesideItServed) {
  const std::string font = namedFont(u"Bad").substr(0, 400);
  int step = 0;
  qxtest::forEachWordExtreme(font, [&](const std::string& bytes) {
    if (++step % 5 != 0) return;  // each place once, the extremes in turn
    world.file("/f/a.ttf", bytes).file("/f/b.ttf", namedFont(u"Good"));
    openFolder();
    EXPECT_EQ(fileOf(u"Good"), "/f/b.ttf") << step;
    resetRegistry();
  });
}

TEST_F(HostileFolders, FoldersInsideEachOtherAreScannedToTheirLimitAndTheNextFolderToo) {
  std::string path = "/f";
  for (std::size_t depth = 1; depth <= limits::kMostFolderDepth + 1; ++depth, path += "/d") {
    const std::string level = std::to_string(depth);
    world.file(path + "/a.ttf", namedFont(u"Level" + std::u16string(level.begin(), level.end())));
  }
  world.file("/g/b.ttf", namedFont(u"Next"));
  open("<font-folder path=\"/f\" recursive=\"yes\"/><font-folder path=\"/g\"/>");
  EXPECT_NE(fileOf(u"Level1"), "");
  EXPECT_NE(fileOf(u"Level64"), "");
  EXPECT_EQ(fileOf(u"Level65"), "");
  EXPECT_EQ(fileOf(u"Next"), "/g/b.ttf");
}

TEST_F(HostileFolders, AHundredThousandFoldersAreScannedAndNamedOnesBesides) {
  const auto sub = [](std::size_t number) { return "/f/" + std::to_string(100'000 + number); };
  for (std::size_t i = 0; i <= limits::kMostFolders + 1; ++i) world.folder(sub(i));
  world.file(sub(limits::kMostFolders) + "/a.ttf", namedFont(u"Last"));
  world.file(sub(limits::kMostFolders + 1) + "/b.ttf", namedFont(u"Beyond"));
  world.file("/g/c.ttf", namedFont(u"Named"));
  open("<font-folder path=\"/f\" recursive=\"yes\"/><font-folder path=\"" + sub(0) +
       "\"/><font-folder path=\"/g\"/>");
  EXPECT_NE(fileOf(u"Last"), "") << "the first one was named, so it does not count";
  EXPECT_EQ(fileOf(u"Beyond"), "");
  EXPECT_NE(fileOf(u"Named"), "");
}

TEST_F(HostileFolders, LinksThatMultiplyTheWaysStayWithinTheLimit) {
  // Each level has two ways to the next: 2^18 ways in all, none of them a circle.
  for (int level = 0; level < 18; ++level) {
    const std::string here = "/d" + std::to_string(level);
    const std::string next = "/d" + std::to_string(level + 1);
    world.folder(here).folder(next).link(here + "/x", next).link(here + "/y", next);
  }
  world.file("/g/a.ttf", namedFont(u"Named"));
  open("<font-folder path=\"/d0\" recursive=\"yes\"/><font-folder path=\"/g\"/>");
  EXPECT_GE(registry->folders().size(), limits::kMostFolders);
  EXPECT_LE(registry->folders().size(), limits::kMostFolders + 2);
  EXPECT_EQ(fileOf(u"Named"), "/g/a.ttf");
}

/// A folder of the real file system, which is removed with all that is in it.
class RealFolder {
 public:
  RealFolder() : path_(std::filesystem::temp_directory_path() / "qx-hostile-XXXXXX") {
    std::string name = path_.string();
    path_ = mkdtemp(name.data());
  }
  RealFolder(const RealFolder&) = delete;
  RealFolder& operator=(const RealFolder&) = delete;
  ~RealFolder() { std::filesystem::remove_all(path_); }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  void write(const char* name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
  }

 private:
  std::filesystem::path path_;
};

TEST(RealFolders, PipesAndCirclesHoldNothingUp) {
  const RealFolder folder;
  ASSERT_EQ(mkfifo((folder.path() / "a.ttf").c_str(), 0600), 0);
  std::filesystem::create_directory_symlink(folder.path(), folder.path() / "circle");
  std::filesystem::create_symlink("self.ttf", folder.path() / "self.ttf");
  std::filesystem::create_symlink("a.ttf", folder.path() / "to-pipe.ttf");
  std::filesystem::create_symlink("/dev/zero", folder.path() / "zero.ttf");
  folder.write("good.ttf", namedFont(u"Good"));
  FS_FontRegistry registry;
  registry.folders().add(
      std::make_unique<FS_FontFolder>(UnicodeString::fromUTF8(folder.path().string() + "/"),
                                      static_cast<unsigned char>(0), true),
      nullptr, false);
  registry.scanFolders();
  EXPECT_EQ(registry.mainPool().fonts().size(), 1U);
  EXPECT_NE(registry.findFont(u"Good", makeFontKey(400, false, 5), nullptr).font, nullptr);
}

TEST(MetricFilesOfOneFont, AreTwoFontsOfWhichTheFirstHoldsTheNames) {
  FS_FontPool pool;
  auto* afm = new qxtest::FakeFont(u"/f/one.afm", u"One");
  auto* pfm = new qxtest::FakeFont(u"/f/one.pfm", u"One");
  for (FS_BaseFont* font : {static_cast<FS_BaseFont*>(afm), static_cast<FS_BaseFont*>(pfm)}) {
    pool.keepFont(font);
    font->refCount.fetch_add(1);
    pool.addFont({font, 0});
  }
  const FS_FontKey key = makeFontKey(400, false, 5);
  EXPECT_EQ(pool.fonts().size(), 2U);
  EXPECT_EQ(pool.findFont(u"One", key).font, afm);
  EXPECT_EQ(pool.findFont(u"one", key).font, afm);
  EXPECT_EQ(pool.findFont(u"one.pfm", key).font, pfm) << "its whole file name is its own";
}

}  // namespace
}  // namespace QXFontService_NS
