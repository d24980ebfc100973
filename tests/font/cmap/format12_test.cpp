#include "font/cmap/format12.h"

#include <gtest/gtest.h>

#include <climits>

#include "font/cmap/subtable_streams.h"
#include "support/be_bytes.h"
#include "support/cmap_builder.h"
#include "support/random_draw.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::BeBytes;
using qxtest::CmapBuilder;
using qxtest::CmapGroup;
using qxtest::RandomDraw;

CmapFormat12 read(const std::string& bytes) {
  CmapFormat12 table;
  EXPECT_EQ(readFrom(bytes, readFormat12, table), std::nullopt);
  table.makeIndex();
  return table;
}

CmapFormat12 make(const std::vector<CmapGroup>& groups) {
  return read(CmapBuilder::format12(groups));
}

TableResult failureOf(const std::string& bytes) {
  CmapFormat12 table;
  return readFrom(bytes, readFormat12, table);
}

std::string header(std::uint32_t length, std::uint32_t numGroups) {
  return BeBytes().u16(12).u16(0).u32(length).u32(0).u32(numGroups).str();
}

void expectBothSearchesAgree(const CmapFormat12& table, int last, int step = 1) {
  for (int code = -2; code <= last; code += step) {
    ASSERT_EQ(table.glyph(code), table.glyphByHalving(code)) << code;
  }
}

TEST(CmapFormat12, MapsByGroup) {
  const CmapFormat12 table = make({{65, 90, 5}, {0x1F600, 0x1F64F, 100}});
  EXPECT_EQ(table.glyph(65), 5);
  EXPECT_EQ(table.glyph(90), 30);
  EXPECT_EQ(table.glyph(0x1F64F), 100 + 0x4F);
  for (const int code : {64, 91, 0x1F5FF, 0x1F650, 0x10FFFF}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
  }
}

TEST(CmapFormat12, GlyphsAreCountedInSixteenBits) {
  const CmapFormat12 table = make({{65, 67, 0xFFFF}, {97, 98, 0xABCD0007}});
  EXPECT_EQ(table.glyph(66), 0);
  EXPECT_EQ(table.glyph(67), 1);
  EXPECT_EQ(table.glyph(98), 8);
}

TEST(CmapFormat12, NegativeCodesMissEvenInGroupsThatHoldEverything) {
  const CmapFormat12 table = make({{0, 0xFFFFFFFF, 1}});
  for (const int code : {-1, INT_MIN}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
    EXPECT_EQ(table.glyphByHalving(code), kNoGlyph) << code;
  }
  EXPECT_EQ(table.glyph(INT_MAX), 0);  // 0x7FFFFFFF + 1 in 16 bits
}

TEST(CmapFormat12, CodesBehindUnicodeAreSearchedToo) {
  const CmapFormat12 table = make({{0x10FFFF, 0x110001, 7}, {0x7FFFFFFF, 0x80000000, 20}});
  EXPECT_EQ(table.glyph(0x110001), 9);
  EXPECT_EQ(table.glyph(0x110002), kNoGlyph);
  EXPECT_EQ(table.glyph(INT_MAX), 20);
}

TEST(CmapFormat12, CharCountSumsTheGroups) {
  EXPECT_EQ(make({}).charCount, 0u);
  EXPECT_EQ(make({{65, 90, 0}, {97, 97, 0}}).charCount, 27u);
  EXPECT_EQ(make({{90, 65, 0}, {97, 97, 0}}).charCount, 1u);
  EXPECT_EQ(make({{0, 0xFFFFFFFF, 0}, {0, 0xFFFFFFFF, 0}}).charCount, UINT32_MAX);
}

TEST(CmapFormat12, ALengthBelowTheGroupsIsAFormatError) {
  const TableResult error = formatFailure("'cmap' table format 12 length error");
  const std::string group = BeBytes().u32(65).u32(90).u32(5).str();
  EXPECT_EQ(failureOf(header(28, 1) + group), std::nullopt);
  EXPECT_EQ(failureOf(header(29, 1) + group), std::nullopt);
  EXPECT_EQ(failureOf(header(27, 1) + group), error);
  EXPECT_EQ(failureOf(header(16, 0)), std::nullopt);
  EXPECT_EQ(failureOf(header(15, 0)), error);
  EXPECT_EQ(failureOf(header(0, 1) + group), error);
}

TEST(CmapFormat12, TheSizeOfTheGroupsDoesNotWrap) {
  const TableResult error = formatFailure("'cmap' table format 12 length error");
  EXPECT_EQ(failureOf(header(0xFFFFFFFF, 0x15555556)), error);
  EXPECT_EQ(failureOf(header(28, 0xFFFFFFFF)), error);
}

TEST(CmapFormat12, AStatedSizeBeyondTheFileIsAReadError) {
  EXPECT_EQ(failureOf(header(0xFFFFFFFF, 0x15555552)),
            readFailure("'cmap' table group read error"));
}

TEST(CmapFormat12, ACutSubtableNamesThePart) {
  qxtest::forEachPrefix(
      CmapBuilder::format12({{65, 90, 5}, {97, 99, 7}}), [](const std::string& cut) {
        EXPECT_EQ(failureOf(cut), readFailure(cut.size() < 16 ? "'cmap' table format 12 read error"
                                                              : "'cmap' table group read error"))
            << cut.size();
      });
}

TEST(CmapFormat12, TheLowBitsOfTheFirstCodeTellThePrivateRange) {
  EXPECT_TRUE(make({{0xF020, 0xF0FF, 0}}).startsInPrivateRange());
  EXPECT_TRUE(make({{0x1F020, 0x1F0FF, 0}}).startsInPrivateRange());
  EXPECT_FALSE(make({{0xE020, 0xF0FF, 0}}).startsInPrivateRange());
  EXPECT_FALSE(make({{0x20, 0x7E, 0}, {0xF020, 0xF0FF, 0}}).startsInPrivateRange());
  EXPECT_FALSE(make({}).startsInPrivateRange());
}

TEST(CmapFormat12, BlocksWithoutGroupsMapNothing) {
  const CmapFormat12 table = make({{0x41, 0x42, 0}, {0x3FF, 0x501, 0}, {0x1F600, 0x1F601, 0}});
  for (const unsigned block : {0u, 3u, 4u, 5u, 0x1F6u}) EXPECT_TRUE(table.mayMap(block)) << block;
  for (const unsigned block : {1u, 2u, 6u, 0x1F5u, 0x1F7u, 0x10FFu}) {
    EXPECT_FALSE(table.mayMap(block)) << block;
  }
  EXPECT_FALSE(make({}).mayMap(0));
  EXPECT_TRUE(make({{90, 65, 0}}).mayMap(0x10FF));  // damaged: all must be searched
}

/// Groups that ascend and do not touch.
std::vector<CmapGroup> randomGroups(RandomDraw& random, unsigned count) {
  std::vector<CmapGroup> groups;
  std::uint32_t code = 0;
  while (groups.size() < count) {
    const std::uint32_t start = code + random.below(700);
    const std::uint32_t end = start + random.below(90);
    groups.push_back({start, end, random.below(0xFFFFFFFF)});
    code = end + 1;
  }
  return groups;
}

TEST(CmapFormat12, BothSearchesFindEachGroupOfASoundTable) {
  RandomDraw random(12);
  for (const unsigned count : {0u, 1u, 2u, 3u, 100u, 2000u}) {
    const auto groups = randomGroups(random, count);
    const CmapFormat12 table = make(groups);
    for (const CmapGroup& group : groups) {
      for (std::uint32_t code = group.start; code <= group.end; ++code) {
        ASSERT_EQ(table.glyph(static_cast<int>(code)), (group.glyph + code - group.start) & 0xFFFF);
      }
    }
    expectBothSearchesAgree(table, 0x110010, 13);
  }
}

TEST(CmapFormat12, DamagedGroupsAnswerAsTheirSearchSays) {
  RandomDraw random(1212);
  for (int round = 0; round < 25; ++round) {
    auto groups = randomGroups(random, 2 + random.below(60));
    for (unsigned hits = 1 + random.below(3); hits > 0; --hits) {
      CmapGroup& group = groups[random.below(static_cast<unsigned>(groups.size()))];
      (random.below(2) != 0 ? group.start : group.end) = random.below(50000);
    }
    expectBothSearchesAgree(make(groups), 51000);
  }
}

TEST(CmapFormat12, OverlappingGroupsAnswerByHalving) {
  const CmapFormat12 table = make({{10, 30, 100}, {20, 40, 200}, {50, 60, 300}});
  EXPECT_EQ(table.glyph(25), 205);
  EXPECT_EQ(table.glyph(15), 105);
}

TEST(CmapFormat12, ExtremeFieldsAreHarmless) {
  const auto bytes =
      CmapBuilder::format12({{65, 90, 5}, {0x3000, 0x3005, 9}, {0x1F600, 0x1F601, 1}});
  qxtest::forEachLongExtreme(bytes, [](const std::string& changed) {
    CmapFormat12 table;
    if (readFrom(changed, readFormat12, table)) return;
    table.makeIndex();
    for (const int code : {0, 64, 65, 90, 0x3000, 0x1F600, 0x10FFFF, 0x110000, INT_MAX}) {
      EXPECT_EQ(table.glyph(code), table.glyphByHalving(code)) << code;
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
