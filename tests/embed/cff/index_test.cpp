#include "embed/cff/index.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cff {
namespace {

using qxtest::bytesOf;
using qxtest::cffIndex;

TEST(CffIndex, ReadsTheHeadBehindTheCount) {
  std::istringstream stream("??" + cffIndex({"ab", "", "c"}));
  FS_CFFIndexHeader header;
  ASSERT_TRUE(readIndexHeader(stream, 2, header));
  EXPECT_EQ(header.count, 3u);
  EXPECT_EQ(header.offSize, 1u);
  EXPECT_EQ(header.offsets.size(), 4u);
  EXPECT_EQ(header.dataPosition, 9);
  EXPECT_EQ(header.getOffset(0), 1u);
  EXPECT_EQ(header.getOffset(3), 4u);
  EXPECT_EQ(header.getOffset(4), 0u);
  EXPECT_EQ(header.endPosition(), 12);
}

TEST(CffIndex, ReadsEveryOffsetSize) {
  for (unsigned offSize = 1; offSize <= 4; ++offSize) {
    std::istringstream stream(cffIndex({"ab", "c"}, offSize));
    FS_CFFIndexHeader header;
    FS_CFFStrings entries;
    ASSERT_TRUE(readIndexHeader(stream, 0, header)) << offSize;
    EXPECT_EQ(header.offSize, offSize);
    ASSERT_TRUE(readIndexEntries(header, stream, entries));
    EXPECT_EQ(entries, (FS_CFFStrings{"ab", "c"}));
  }
}

TEST(CffIndex, RefusesOtherOffsetSizes) {
  for (int offSize : {0, 5, 255}) {
    // With enough behind it for an array of any such size.
    std::istringstream stream(bytesOf({0, 1, offSize}) + std::string(600, '\1'));
    FS_CFFIndexHeader header;
    EXPECT_FALSE(readIndexHeader(stream, 0, header)) << offSize;
  }
}

TEST(CffIndex, AcceptsAnEmptyIndexAtTheVeryEnd) {
  std::istringstream stream(bytesOf({9, 0, 0}));
  FS_CFFIndexHeader header;
  FS_CFFStrings entries{"old"};
  ASSERT_TRUE(readIndexHeader(stream, 1, header));
  EXPECT_EQ(header.count, 0u);
  EXPECT_EQ(header.offSize, 0u);
  EXPECT_EQ(header.dataPosition, 3);
  EXPECT_EQ(header.endPosition(), 3);
  EXPECT_EQ(header.getOffset(0), 0u);
  ASSERT_TRUE(readIndexEntries(header, stream, entries));
  EXPECT_TRUE(entries.empty());
}

TEST(CffIndex, HeadOfATableRefusesOffsetZeroAndBelow) {
  std::istringstream stream("?" + cffIndex({}) + cffIndex({"x"}));
  CffTable table{&stream, 1, 8};
  FS_CFFIndexHeader header;
  EXPECT_FALSE(readCFFIndexHeader(table, 0, header));
  EXPECT_FALSE(readCFFIndexHeader(table, -1, header));
  EXPECT_FALSE(readCFFIndexHeader(table, 1000, header));
  ASSERT_TRUE(readCFFIndexHeader(table, 2, header));
  EXPECT_EQ(header.count, 1u);
  EXPECT_FALSE(readCFFIndexHeader(CffTable{}, 2, header));
}

TEST(CffIndex, ReadsSingleEntries) {
  std::istringstream stream(cffIndex({"ab", "", "c"}));
  FS_CFFIndexHeader header;
  ASSERT_TRUE(readIndexHeader(stream, 0, header));
  FS_CFFBytes entry;
  ASSERT_TRUE(readCFFIndexEntry(header, stream, 0, entry));
  EXPECT_EQ(entry, "ab");
  ASSERT_TRUE(readCFFIndexEntry(header, stream, 1, entry));
  EXPECT_EQ(entry, "");
  ASSERT_TRUE(readCFFIndexEntry(header, stream, 2, entry));
  EXPECT_EQ(entry, "c");
  EXPECT_FALSE(readCFFIndexEntry(header, stream, 3, entry));
  EXPECT_FALSE(readCFFIndexEntry(header, stream, 0xFFFFFFFF, entry));
}

// The first offset is not held against 1: some fonts leave a gap there.
TEST(CffIndex, FirstOffsetNeedNotBeOne) {
  std::istringstream stream(bytesOf({0, 1, 1, 3, 4, 'a', 'b', 'c'}));
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  ASSERT_TRUE(readIndexHeader(stream, 0, header));
  ASSERT_TRUE(readIndexEntries(header, stream, entries));
  EXPECT_EQ(entries, FS_CFFStrings{"c"});
}

struct BadIndex {
  const char* what;
  std::string bytes;
};

TEST(CffIndex, RefusesEntriesThatDoNotStandInTheFile) {
  const std::vector<BadIndex> cases = {
      {"offset 0", bytesOf({0, 1, 1, 0, 2, 'a'})},
      {"falling offsets", bytesOf({0, 1, 1, 3, 2, 'a', 'b', 'c'})},
      {"past the stream", bytesOf({0, 1, 1, 1, 9, 'a'})},
      {"last offset 0", bytesOf({0, 1, 1, 1, 0, 'a'})},
      {"four gigabytes", bytesOf({0, 1, 4, 0, 0, 0, 1, 255, 255, 255, 255, 'a'})},
  };
  for (const BadIndex& bad : cases) {
    std::istringstream stream(bad.bytes);
    FS_CFFIndexHeader header;
    FS_CFFStrings entries;
    FS_CFFBytes entry;
    ASSERT_TRUE(readIndexHeader(stream, 0, header)) << bad.what;
    EXPECT_FALSE(readCFFIndexEntry(header, stream, 0, entry)) << bad.what;
    EXPECT_FALSE(readIndexEntries(header, stream, entries)) << bad.what;
  }
}

// A middle entry that runs behind the last offset stands in the file, but not in the data.
TEST(CffIndex, WholeReadRefusesAnEntryBehindTheLastOffset) {
  std::istringstream stream(bytesOf({0, 2, 1, 1, 9, 2, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}));
  FS_CFFIndexHeader header;
  FS_CFFStrings entries;
  ASSERT_TRUE(readIndexHeader(stream, 0, header));
  EXPECT_FALSE(readIndexEntries(header, stream, entries));
}

TEST(CffIndex, SkipsToTheEnd) {
  std::istringstream stream(cffIndex({"ab", "c"}) + cffIndex({}) + "x");
  std::int64_t position = 0;
  ASSERT_TRUE(skipIndex(stream, position));
  EXPECT_EQ(position, 9);
  ASSERT_TRUE(skipIndex(stream, position));
  EXPECT_EQ(position, 11);
  EXPECT_FALSE(skipIndex(stream, position));
}

TEST(CffIndex, EveryCutIsRefused) {
  qxtest::forEachPrefix(cffIndex({"ab", "c"}, 2), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    FS_CFFIndexHeader header;
    FS_CFFStrings entries;
    EXPECT_FALSE(readIndexHeader(stream, 0, header) && readIndexEntries(header, stream, entries));
  });
}

TEST(CffIndex, SurvivesDamage) {
  qxtest::forEachDamage(cffIndex({"ab", "c", "def"}, 2), [](const std::string& bytes) {
    std::istringstream stream(bytes);
    FS_CFFIndexHeader header;
    FS_CFFStrings entries;
    FS_CFFBytes entry;
    if (!readIndexHeader(stream, 0, header)) return;
    static_cast<void>(readIndexEntries(header, stream, entries));
    for (unsigned i : {0u, 1u, 65534u, 65535u}) {
      const bool read = readCFFIndexEntry(header, stream, i, entry);
      EXPECT_TRUE(!read || entry.size() <= bytes.size());
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cff
