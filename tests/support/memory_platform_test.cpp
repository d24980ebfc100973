#include "support/memory_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "support/registry_text.h"

namespace qxtest {
namespace {

using QXCommonNS::FileIdentity;
using QXCommonNS::FileKind;
using QXCommonNS::FolderEntry;
using QXCommonNS::KnownFolder;
using QXCommonNS::RegistryRoot;
using QXCommonNS::RegistryValue;

std::string bytesOf(const RegistryValue& value) {
  std::string text;
  for (const std::byte byte : value.data) text.push_back(static_cast<char>(byte));
  return text;
}

TEST(MemoryPlatform, FoldersOnTheWayMakeThemselves) {
  MemoryPlatform world;
  world.file("/fonts/latin/a.ttf", "abc");
  EXPECT_EQ(world.fileKind("/fonts"), FileKind::folder);
  EXPECT_EQ(world.fileKind("/fonts/latin/"), FileKind::folder);
  EXPECT_EQ(world.fileKind("/fonts/./latin//a.ttf"), FileKind::regular);
  EXPECT_EQ(world.fileKind("/fonts/latin/../latin/a.ttf"), FileKind::regular);
  EXPECT_EQ(world.fileKind("/fonts/b.ttf"), FileKind::none);
  EXPECT_EQ(world.fileKind("/"), FileKind::folder);
}

TEST(MemoryPlatform, ListsWhatStandsInAFolder) {
  MemoryPlatform world;
  world.file("/f/a.ttf", "").folder("/f/sub").file("/f/sub/b.ttf", "").special("/f/pipe");
  world.hidden("/f/sub").system("/f/a.ttf").link("/f/gone", "/nowhere");
  std::vector<FolderEntry> entries;
  ASSERT_TRUE(world.listFolder("/f/", entries));
  std::sort(entries.begin(), entries.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  ASSERT_EQ(entries.size(), 4u);
  EXPECT_EQ(entries[0].name, "a.ttf");
  EXPECT_TRUE(entries[0].system);
  EXPECT_EQ(entries[1].name, "gone");
  EXPECT_EQ(entries[1].kind, FileKind::none);
  EXPECT_EQ(entries[2].kind, FileKind::other);
  EXPECT_TRUE(entries[3].hidden);
  EXPECT_EQ(entries[3].kind, FileKind::folder);
  EXPECT_FALSE(world.listFolder("/f/a.ttf", entries));
  EXPECT_TRUE(entries.empty());
  ASSERT_TRUE(world.listFolder("/", entries));
  EXPECT_EQ(entries.size(), 1u);
  EXPECT_EQ(world.counts().listings, 3u);
}

TEST(MemoryPlatform, LinksLeadToTheirTargetAndLoopsNowhere) {
  MemoryPlatform world;
  world.file("/real/a.ttf", "abc").link("/real/again", "/real").link("/one", "/two");
  world.link("/two", "/one");
  FileIdentity real;
  FileIdentity again;
  ASSERT_TRUE(world.identity("/real", real));
  ASSERT_TRUE(world.identity("/real/again/again", again));
  EXPECT_EQ(real, again);
  EXPECT_NE(world.openFile("/real/again/a.ttf"), nullptr);
  EXPECT_EQ(world.fileKind("/one"), FileKind::none);
  EXPECT_FALSE(world.identity("/one", again));
}

TEST(MemoryPlatform, StreamsAndBytesAreCounted) {
  MemoryPlatform world;
  world.file("/a", "0123456789");
  auto stream = world.openFile("/a");
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(world.openStreams(), 1u);
  char last[4];
  stream->seekg(6).read(last, 4);
  EXPECT_EQ(std::string(last, 4), "6789");
  EXPECT_EQ(world.counts().bytesRead, 4u);
  stream.reset();
  EXPECT_EQ(world.openStreams(), 0u);
  EXPECT_EQ(world.openedPaths(), std::vector<std::string>{"/a"});
  world.resetCounts();
  EXPECT_EQ(world.counts().opened, 0u);
}

TEST(MemoryPlatform, FoldersPipesAndUnreadableFilesDoNotOpen) {
  MemoryPlatform world;
  world.folder("/f").special("/p").file("/u", "x").unreadable("/u");
  for (const char* path : {"/f", "/p", "/u", "/none"})
    EXPECT_EQ(world.openFile(path), nullptr) << path;
  EXPECT_EQ(world.counts().opened, 0u);
}

TEST(MemoryPlatform, AFileThatIsCutGivesAShortRead) {
  MemoryPlatform world;
  world.file("/a", "0123456789");
  const auto stream = world.openFile("/a");
  world.cut("/a", 3);
  const std::string rest{std::istreambuf_iterator<char>(*stream), {}};
  EXPECT_EQ(rest, "012");
}

TEST(MemoryPlatform, TellsWhatItWasTold) {
  MemoryPlatform world;
  world.setEnvironment("HOME", "/home/a").setKnownFolder(KnownFolder::fonts, "C:/Windows/Fonts");
  world.setModulePath("/opt/").setLocaleName("ja_JP").addSystemFontFile("/s/a.ttf");
  world.addFontFolderCandidate("/s/");
  std::string out = "untouched";
  EXPECT_FALSE(world.environment("NONE", out));
  EXPECT_FALSE(world.knownFolder(KnownFolder::system, out));
  EXPECT_EQ(out, "untouched");
  EXPECT_TRUE(world.environment("HOME", out));
  EXPECT_EQ(out, "/home/a");
  EXPECT_TRUE(world.knownFolder(KnownFolder::fonts, out));
  EXPECT_EQ(out, "C:/Windows/Fonts");
  EXPECT_EQ(world.modulePath("x"), "/opt/");
  EXPECT_EQ(world.localeName(), "ja_JP");
  EXPECT_EQ(world.systemFontFiles(), std::vector<std::string>{"/s/a.ttf"});
  EXPECT_EQ(world.fontFolderCandidates(), std::vector<std::string>{"/s/"});
}

TEST(MemoryPlatform, CountsWhatThreadsOpenAtOnce) {
  MemoryPlatform world;
  world.file("/a.ttf", "content");
  constexpr int kThreads = 4;
  constexpr int kRounds = 200;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&world] {
      for (int round = 0; round < kRounds; ++round) (void)world.openFile("/a.ttf")->get();
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(world.counts().opened, std::size_t{kThreads} * kRounds);
  EXPECT_EQ(world.openStreams(), 0u);
  EXPECT_EQ(world.openedPaths().size(), std::size_t{kThreads} * kRounds);
}

TEST(RegistryText, ReadsTextsMultiTextsAndBytes) {
  MemoryPlatform world;
  world.registry(
      "[HKEY_LOCAL_MACHINE\\Software\\Fonts]\n"
      "\"Arial (TrueType)\"=\"C:\\a.ttf\"\r\n"
      "  \"Optima\"=multi:\"T\",\"a.pfm\"\n"
      "\n"
      "\"Count\"=type 4:01 ff\n"
      "[HKEY_CURRENT_USER\\EUDC\\932]");
  std::vector<RegistryValue> values;
  ASSERT_TRUE(world.registryValues(RegistryRoot::localMachine, "SOFTWARE\\FONTS", values));
  ASSERT_EQ(values.size(), 3u);
  EXPECT_EQ(values[0].name, u"Arial (TrueType)");
  EXPECT_EQ(values[0].type, RegistryValue::kText);
  EXPECT_EQ(bytesOf(values[0]), std::string("C\0:\0\\\0a\0.\0t\0t\0f\0\0\0", 18));
  EXPECT_EQ(values[1].type, RegistryValue::kMultiText);
  EXPECT_EQ(bytesOf(values[1]), std::string("T\0\0\0a\0.\0p\0f\0m\0\0\0\0\0", 18));
  EXPECT_EQ(values[2].type, 4u);
  EXPECT_EQ(bytesOf(values[2]), "\x01\xFF");
  EXPECT_TRUE(world.registryValues(RegistryRoot::currentUser, "EUDC\\932", values));
  EXPECT_TRUE(values.empty());
  EXPECT_FALSE(world.registryValues(RegistryRoot::localMachine, "EUDC\\932", values));
}

}  // namespace
}  // namespace qxtest
