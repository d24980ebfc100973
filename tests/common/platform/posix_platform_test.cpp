#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "common/platform/platform.h"
#include "common/platform/posix/module_path.h"
#include "support/memory_platform.h"

namespace QXCommonNS {
namespace {

namespace fs = std::filesystem;

class PosixPlatformTest : public testing::Test {
 protected:
  PosixPlatformTest() {
    std::string pattern = (fs::temp_directory_path() / "qxplatformXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~PosixPlatformTest() override { fs::remove_all(folder_); }

  std::string write(const std::string& name, const std::string& content) {
    const std::string path = folder_ + "/" + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  std::string at(const std::string& name) const { return folder_ + "/" + name; }

  std::string folder_;
  FS_Platform& platform_ = nativePlatform();
};

class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* old = std::getenv(name);
    had_ = old != nullptr;
    if (had_) old_ = old;
    set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { set(had_ ? old_.c_str() : nullptr); }
  void set(const char* value) {
    if (value != nullptr) {
      ::setenv(name_, value, 1);
    } else {
      ::unsetenv(name_);
    }
  }

 private:
  const char* name_;
  std::string old_;
  bool had_ = false;
};

TEST_F(PosixPlatformTest, OpensRegularFilesAndLinksToThem) {
  const std::string path = write("a.ttf", "0123456789");
  fs::create_symlink(path, at("l.ttf"));
  for (const std::string& name : {path, at("l.ttf")}) {
    const auto stream = platform_.openFile(name);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream), {}), "0123456789");
  }
}

TEST_F(PosixPlatformTest, AnythingElseDoesNotOpenNorHang) {
  ASSERT_EQ(::mkfifo(at("pipe.ttf").c_str(), 0600), 0);
  fs::create_directory(at("folder.ttf"));
  fs::create_symlink(at("nowhere"), at("gone.ttf"));
  for (const char* name : {"pipe.ttf", "folder.ttf", "gone.ttf", "none.ttf"}) {
    EXPECT_EQ(platform_.openFile(at(name)), nullptr) << name;
    EXPECT_NE(platform_.fileKind(at(name)), FileKind::regular) << name;
  }
  EXPECT_EQ(platform_.openFile("/dev/null"), nullptr);
  EXPECT_EQ(platform_.openFile(""), nullptr);
  const std::string zeroInside = write("a", "x") + std::string("\0b", 2);
  EXPECT_EQ(platform_.openFile(zeroInside), nullptr);
  EXPECT_EQ(platform_.fileKind(zeroInside), FileKind::none);
}

TEST_F(PosixPlatformTest, FilesOfFourGibibytesAreUnreadable) {
  const std::string path = write("big.ttf", "x");
  fs::resize_file(path, 0xFFFFFFFFu);
  const auto stream = platform_.openFile(path);
  ASSERT_NE(stream, nullptr);
  stream->seekg(0, std::ios::end);
  EXPECT_EQ(static_cast<std::uint64_t>(std::streamoff(stream->tellg())), 0xFFFFFFFFu);
  fs::resize_file(path, 0x100000000u);
  EXPECT_EQ(platform_.openFile(path), nullptr);
}

TEST_F(PosixPlatformTest, AFileThatShrinksGivesAShortRead) {
  const std::string path = write("a.ttf", std::string(100000, 'x'));
  const auto stream = platform_.openFile(path);
  fs::resize_file(path, 10);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(*stream), {}).size(), 10u);
}

TEST_F(PosixPlatformTest, ListsEntriesWithTheirKinds) {
  write("a.ttf", "");
  write(".b.ttf", "");
  write("bad\xFF.ttf", "");
  fs::create_directory(at("sub"));
  fs::create_symlink(at("sub"), at("link"));
  fs::create_symlink(at("nowhere"), at("gone"));
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  std::vector<FolderEntry> entries;
  ASSERT_TRUE(platform_.listFolder(folder_, entries));
  std::sort(entries.begin(), entries.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  std::string told;
  for (const FolderEntry& entry : entries) {
    told += entry.name + ' ' + std::to_string(static_cast<int>(entry.kind)) +
            (entry.hidden ? " hidden" : "") + (entry.system ? " system" : "") + '\n';
  }
  EXPECT_EQ(told, ".b.ttf 1 hidden\na.ttf 1\ngone 0\nlink 2\npipe 3\nsub 2\n");
  EXPECT_FALSE(platform_.listFolder(at("a.ttf"), entries));
  EXPECT_TRUE(entries.empty());
  EXPECT_FALSE(platform_.listFolder(at("none"), entries));
}

TEST_F(PosixPlatformTest, IdentityIsThatOfWhatALinkLeadsTo) {
  fs::create_directory(at("sub"));
  fs::create_symlink(folder_, at("sub/up"));
  FileIdentity real;
  FileIdentity link;
  ASSERT_TRUE(platform_.identity(folder_, real));
  ASSERT_TRUE(platform_.identity(at("sub/up"), link));
  EXPECT_EQ(real, link);
  ASSERT_TRUE(platform_.identity(at("sub"), link));
  EXPECT_FALSE(real == link);
  EXPECT_FALSE(platform_.identity(at("none"), link));
}

TEST_F(PosixPlatformTest, EnvironmentIsReadAtTheTimeOfTheCall) {
  Variable variable("QX_PLATFORM_TEST", "one");
  std::string out = "untouched";
  EXPECT_TRUE(platform_.environment("QX_PLATFORM_TEST", out));
  EXPECT_EQ(out, "one");
  variable.set("");
  EXPECT_TRUE(platform_.environment("QX_PLATFORM_TEST", out));
  EXPECT_EQ(out, "");
  variable.set(nullptr);
  out = "untouched";
  EXPECT_FALSE(platform_.environment("QX_PLATFORM_TEST", out));
  EXPECT_FALSE(platform_.environment(nullptr, out));
  EXPECT_EQ(out, "untouched");
}

TEST_F(PosixPlatformTest, FontFoldersAreTheUsualFour) {
  Variable home("HOME", "/home/a");
  EXPECT_EQ(platform_.fontFolderCandidates(),
            (std::vector<std::string>{"/usr/share/fonts/", "/usr/local/share/fonts/",
                                      "/home/a/.local/share/fonts/", "/home/a/.fonts/"}));
  home.set(nullptr);
  EXPECT_EQ(platform_.fontFolderCandidates().size(), 2u);
}

TEST_F(PosixPlatformTest, KnownFoldersAreThoseOfXdg) {
  const Variable home("HOME", "/home/a");
  const Variable config("XDG_CONFIG_HOME", "/c");
  const Variable data("XDG_DATA_HOME", nullptr);
  std::string out;
  EXPECT_TRUE(platform_.knownFolder(KnownFolder::roamingData, out));
  EXPECT_EQ(out, "/c");
  EXPECT_TRUE(platform_.knownFolder(KnownFolder::localData, out));
  EXPECT_EQ(out, "/home/a/.local/share");
  EXPECT_TRUE(platform_.knownFolder(KnownFolder::commonData, out));
  EXPECT_EQ(out, "/usr/share");
}

TEST_F(PosixPlatformTest, ThereIsNoRegistryAndNoFolderOfWindows) {
  std::vector<RegistryValue> values(1);
  std::string out = "untouched";
  EXPECT_FALSE(platform_.registryValues(RegistryRoot::localMachine, "Software", values));
  EXPECT_TRUE(values.empty());
  EXPECT_FALSE(platform_.knownFolder(KnownFolder::fonts, out));
  EXPECT_EQ(out, "untouched");
}

#if defined(QX_WITH_FONTCONFIG)
TEST_F(PosixPlatformTest, SystemFontsComeFromTheFoldersOfFontconfig) {
  fs::create_directories(at("fonts/sub"));
  write("fonts/b.ttf", "");
  write("fonts/sub/a.OTF", "");
  write("fonts/c.txt", "");
  const std::string config =
      write("fonts.conf", "<fontconfig><dir>" + at("fonts") + "</dir></fontconfig>");
  const Variable file("FONTCONFIG_FILE", config.c_str());
  EXPECT_EQ(platform_.systemFontFiles(),
            (std::vector<std::string>{at("fonts/b.ttf"), at("fonts/sub/a.OTF")}));
}
#endif

TEST_F(PosixPlatformTest, TheLocaleIsThatOfIcu) {
  EXPECT_EQ(platform_.localeName(), "");
}

TEST(ModulePath, IsTheFolderOfThisProgramWhereTheModuleIsLinkedIn) {
  const std::string program = fs::read_symlink("/proc/self/exe").parent_path().string() + "/";
  EXPECT_EQ(nativePlatform().modulePath("QXNoSuchModule99"), program);
}

TEST(ModulePath, IsThatOfALoadedModule) {
  const std::string folder = nativePlatform().modulePath("c");
  EXPECT_EQ(folder.front(), '/');
  EXPECT_EQ(folder.back(), '/');
  EXPECT_TRUE(fs::exists(folder + "libc.so.6")) << folder;
}

TEST(ModulePath, DoesNotFollowTheCurrentFolder) {
  const std::string before = nativePlatform().modulePath("QXNoSuchModule99");
  const fs::path old = fs::current_path();
  fs::current_path("/");
  EXPECT_EQ(nativePlatform().modulePath("QXNoSuchModule99"), before);
  fs::current_path(old);
}

TEST(ModulePath, NamesOfAModule) {
  for (const char* name : {"X13.so", "libX13.so", "X13.so.13", "libX13.so.13.0.0"})
    EXPECT_TRUE(posix::isModuleName(name, "X13")) << name;
  for (const char* name : {"X13", "X13.dll", "X130.so", "libX13.so13", "YX13.so", "", "libX1.so"})
    EXPECT_FALSE(posix::isModuleName(name, "X13")) << name;
  EXPECT_TRUE(posix::isModuleName("libfoo.so", "libfoo"));
}

TEST(Platform, TestsStandInForTheSystem) {
  EXPECT_EQ(&platform(), &nativePlatform());
  qxtest::MemoryPlatform world;
  {
    const qxtest::PlatformInPlace inPlace(world);
    EXPECT_EQ(&platform(), &world);
  }
  EXPECT_EQ(&platform(), &nativePlatform());
}

}  // namespace
}  // namespace QXCommonNS

#endif
