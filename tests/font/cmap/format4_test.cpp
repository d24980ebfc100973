#include "font/cmap/format4.h"

#include <gtest/gtest.h>

#include <climits>

#include "font/cmap/subtable_streams.h"
#include "support/be_bytes.h"
#include "support/cmap_builder.h"
#include "support/random_draw.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::CmapBuilder;
using qxtest::CmapSegment;
using qxtest::RandomDraw;

const CmapSegment kLast{0xFFFF, 0xFFFF, 1};

CmapFormat4 read(const std::string& bytes) {
  CmapFormat4 table;
  EXPECT_EQ(readFrom(bytes, readFormat4, table), std::nullopt);
  table.makeIndex();
  return table;
}

CmapFormat4 make(const std::vector<CmapSegment>& segments, unsigned padWord = 0) {
  return read(CmapBuilder::format4(segments, padWord));
}

TableResult failureOf(const std::string& bytes) {
  CmapFormat4 table;
  return readFrom(bytes, readFormat4, table);
}

/// `bytes` with another `length` field.
std::string withLength(const std::string& bytes, std::size_t length) {
  return withWord(bytes, 2, static_cast<unsigned>(length));
}

void expectBothSearchesAgree(const CmapFormat4& table) {
  for (int code = -2; code <= 0x10002; ++code) {
    ASSERT_EQ(table.glyph(code), table.glyphByHalving(code)) << code;
  }
}

TEST(CmapFormat4, AFetchedZeroGetsTheDeltaToo) {
  const CmapFormat4 table = make({{65, 66, 5, {0, 7}}, kLast});
  EXPECT_EQ(table.glyph(65), 5);
  EXPECT_EQ(table.glyph(66), 12);
}

TEST(CmapFormat4, ThePadWordMayStandForTheEndOfASegmentMore) {
  // The pad ends it at 0x60, the first idDelta starts it at 0x50, the first idRangeOffset is its
  // delta, and the word behind the arrays its range offset.
  const CmapFormat4 table = make({{0x41, 0x42, 0x50}}, 0x60);
  EXPECT_EQ(table.glyph(0x4F), kNoGlyph);
  EXPECT_EQ(table.glyph(0x50), 0x50);
  EXPECT_EQ(table.glyph(0x60), 0x60);
  EXPECT_EQ(table.glyph(0x61), kNoGlyph);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, ThePadSegmentTakesItsDeltaAndRangeFromWhatFollows) {
  // One segment: the word of its range offset is the pad's delta, the first glyph word the pad's
  // range offset, here 2: the next word.
  const CmapFormat4 table = make({{0x41, 0x42, 0x50, {2, 0x30}}}, 0x60);
  EXPECT_EQ(table.glyph(0x50), 0x30 + 2);
  EXPECT_EQ(table.glyph(0x51), kNoGlyph);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, APadWordWithinTheSegmentsIsNeverTouched) {
  for (const unsigned pad : {0x41u, 0xFFFFu}) {
    const CmapFormat4 table = make({{0x41, 0x42, 1}, kLast}, pad);
    EXPECT_EQ(table.glyph(0x41), 0x42);
    EXPECT_EQ(table.glyph(0x43), kNoGlyph);
    expectBothSearchesAgree(table);
  }
}

TEST(CmapFormat4, WithoutSegmentsThePadAloneIsSearched) {
  const CmapFormat4 table = make({}, 0x7F);
  EXPECT_EQ(table.segCount, 0u);
  EXPECT_EQ(table.glyph(0x41), 0x41);  // all the words behind are 0
  EXPECT_EQ(table.glyph(0x80), kNoGlyph);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, MapsByDelta) {
  const CmapFormat4 table = make({{65, 90, -60}, {97, 122, 1}, kLast});
  EXPECT_EQ(table.glyph(65), 5);
  EXPECT_EQ(table.glyph(90), 30);
  EXPECT_EQ(table.glyph(97), 98);
  for (const int code : {64, 91, 96, 123}) EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
}

TEST(CmapFormat4, ComputedGlyphsAreCutToSixteenBits) {
  const CmapFormat4 table = make({{65, 66, -65}, {97, 98, 2, {0xFFFE, 0xFFFF}}, kLast});
  EXPECT_EQ(table.glyph(65), 0);
  EXPECT_EQ(table.glyph(66), 1);
  EXPECT_EQ(table.glyph(97), 0);
  EXPECT_EQ(table.glyph(98), 1);
  EXPECT_EQ(table.glyph(0xFFFF), 0);
}

TEST(CmapFormat4, OddRangeOffsetsAreHalvedDownwards) {
  const std::string bytes = CmapBuilder::format4({{65, 66, 0, {7, 8}}, kLast});
  const std::size_t rangeOffset = 14 + 2 * (3 * 2 + 1);
  EXPECT_EQ(read(withWord(bytes, rangeOffset, 4 + 1)).glyph(66), 8);
}

TEST(CmapFormat4, AGlyphWordBehindTheSubtableIsNoGlyph) {
  const std::string bytes = CmapBuilder::format4({{65, 66, 5, {7, 8}}, kLast});
  const CmapFormat4 table = read(withLength(bytes, bytes.size() - 2));
  EXPECT_EQ(table.glyph(65), 12);
  EXPECT_EQ(table.glyph(66), kNoGlyph);
}

TEST(CmapFormat4, WordsOfTheArraysBehindTheSubtableAreZero) {
  // The length check is 14 bytes weaker than the arrays are long: here the deltas and the range
  // offsets lie outside.
  const std::string bytes = CmapBuilder::format4({{0x41, 0x42, 9}, {0xFFFF, 0xFFFF, 1}});
  const CmapFormat4 table = read(withLength(bytes, 14 + 10));
  EXPECT_EQ(table.bytes.size(), 10u);
  EXPECT_EQ(table.glyph(0x41), 0x41);
  EXPECT_EQ(table.glyph(0xFFFF), 0xFFFF);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, CodesAreComparedWhole) {
  const CmapFormat4 table = make({{0, 0xFFFF, 1}});
  EXPECT_EQ(table.glyph(0x41), 0x42);
  for (const int code : {-1, INT_MIN, 0x10000, 0x10041, INT_MAX}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
    EXPECT_EQ(table.glyphByHalving(code), kNoGlyph) << code;
  }
}

TEST(CmapFormat4, CharCountStopsBeforeTheFirstSegmentThatEndsAtFFFF) {
  EXPECT_EQ(make({{65, 90, 0}, {97, 97, 0}, kLast}).charCount, 27u);
  EXPECT_EQ(make({{65, 90, 0}, {0xFF00, 0xFFFF, 0}}).charCount, 26u);
  EXPECT_EQ(make({kLast, {65, 90, 0}}).charCount, 0u);
  EXPECT_EQ(make({}).charCount, 0u);
}

TEST(CmapFormat4, CharCountOfASegmentThatEndsBeforeItsStartIsZero) {
  EXPECT_EQ(make({{90, 65, 0}, {97, 98, 0}, kLast}).charCount, 2u);
}

TEST(CmapFormat4, TheSegmentCountIsHalvedDownwards) {
  const std::string bytes = CmapBuilder::format4({{65, 90, 0}, kLast});
  EXPECT_EQ(read(withWord(bytes, 6, 5)).segCount, 2u);
}

TEST(CmapFormat4, ALengthThatDoesNotFitIsAFormatError) {
  const TableResult error = formatFailure("'cmap' table format length error");
  const std::string bytes = CmapBuilder::format4({{65, 90, 0}, kLast});
  EXPECT_EQ(failureOf(withLength(bytes, bytes.size() + 1)), error);
  EXPECT_EQ(failureOf(withLength(bytes, 2 * 8 + 1)), error);
  EXPECT_EQ(failureOf(withLength(bytes, 2 * 8)), error);
  EXPECT_EQ(failureOf(withLength(bytes, 2 * 8 + 2)), std::nullopt);
  EXPECT_EQ(failureOf(withLength(bytes, 0)), error);
  EXPECT_EQ(failureOf(withLength(CmapBuilder::format4({}), 2)), std::nullopt);
}

TEST(CmapFormat4, TheLengthIsHeldAgainstTheSegmentsBeforeItIsRead) {
  const std::string header = CmapBuilder::format4({{65, 90, 0}, kLast}).substr(0, 14);
  EXPECT_EQ(failureOf(withLength(header, 17)), formatFailure("'cmap' table format length error"));
}

TEST(CmapFormat4, BytesBehindTheSubtableDoNotCount) {
  const std::string bytes = CmapBuilder::format4({{65, 66, 5, {7, 8}}, kLast});
  const CmapFormat4 table = read(bytes + std::string(40, '\x11'));
  EXPECT_EQ(table.bytes.size(), bytes.size() - 14);
}

TEST(CmapFormat4, ACutSubtableNamesThePart) {
  qxtest::forEachPrefix(
      CmapBuilder::format4({{65, 66, 5, {7, 8}}, kLast}), [](const std::string& cut) {
        EXPECT_EQ(failureOf(cut), readFailure(cut.size() < 14 ? "'cmap' table format 4 read error"
                                                              : "'cmap' table segment read error"))
            << cut.size();
      });
}

TEST(CmapFormat4, TheFirstSegmentTellsThePrivateRange) {
  EXPECT_TRUE(make({{0xF020, 0xF0FF, 0}, kLast}).startsInPrivateRange());
  EXPECT_FALSE(make({{0xE020, 0xF0FF, 0}, kLast}).startsInPrivateRange());
  EXPECT_FALSE(make({{0x20, 0x7E, 0}, {0xF020, 0xF0FF, 0}, kLast}).startsInPrivateRange());
  EXPECT_TRUE(make({kLast}).startsInPrivateRange());
  EXPECT_FALSE(make({}, 0xF020).startsInPrivateRange());
}

TEST(CmapFormat4, BlocksWithoutSegmentsMapNothing) {
  const CmapFormat4 table = make({{0x41, 0x42, 0}, {0x3FF, 0x501, 0}, kLast});
  for (const unsigned block : {0u, 3u, 4u, 5u, 0xFFu}) EXPECT_TRUE(table.mayMap(block)) << block;
  for (const unsigned block : {1u, 2u, 6u, 0xFEu, 0x100u, 0x10FFu}) {
    EXPECT_FALSE(table.mayMap(block)) << block;
  }
}

/// Segments that ascend and do not touch, with the last one at U+FFFF.
std::vector<CmapSegment> randomSegments(RandomDraw& random, unsigned count) {
  std::vector<CmapSegment> segments;
  unsigned code = 0;
  while (segments.size() < count && code < 0xF000) {
    const unsigned start = code + random.below(300);
    const unsigned end = start + random.below(40);
    CmapSegment segment{start, end, static_cast<int>(random.below(0x10000)) - 0x8000};
    if (random.below(3) == 0) {
      for (unsigned c = start; c <= end; ++c) segment.glyphs.push_back(random.below(4));
    }
    segments.push_back(segment);
    code = end + 1;
  }
  segments.push_back(kLast);
  return segments;
}

unsigned glyphBySegments(const std::vector<CmapSegment>& segments, unsigned code) {
  for (const CmapSegment& segment : segments) {
    if (code < segment.start || code > segment.end) continue;
    const unsigned base = segment.glyphs.empty() ? code : segment.glyphs[code - segment.start];
    return (base + static_cast<unsigned>(segment.idDelta)) & 0xFFFF;
  }
  return kNoGlyph;
}

TEST(CmapFormat4, BothSearchesFindEachSegmentOfASoundTable) {
  RandomDraw random(4);
  for (const unsigned count : {0u, 1u, 2u, 3u, 10u, 100u, 400u}) {
    const auto segments = randomSegments(random, count);
    const CmapFormat4 table = make(segments);
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
      ASSERT_EQ(table.glyph(static_cast<int>(code)), glyphBySegments(segments, code)) << code;
    }
    expectBothSearchesAgree(table);
  }
}

TEST(CmapFormat4, DamagedSegmentsAnswerAsTheirSearchSays) {
  RandomDraw random(44);
  for (int round = 0; round < 25; ++round) {
    std::string bytes = CmapBuilder::format4(randomSegments(random, 1 + random.below(60)));
    for (unsigned hits = 1 + random.below(4); hits > 0; --hits) {
      bytes = withWord(bytes, 14 + 2 * (random.below(static_cast<unsigned>(bytes.size() - 14) / 2)),
                       random.below(0x10000));
    }
    expectBothSearchesAgree(read(bytes));
  }
}

TEST(CmapFormat4, OverlappingSegmentsAnswerByHalving) {
  // Halving meets the middle segment first, a walk from the front the first one.
  const CmapFormat4 table = make({{10, 30, 100}, {20, 40, 200}, {50, 60, 300}});
  EXPECT_EQ(table.glyph(25), 225);
  EXPECT_EQ(table.glyph(15), 115);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, UnsortedSegmentsMayBeMissed) {
  const CmapFormat4 table = make({{50, 60, 0}, {10, 20, 0}, {70, 80, 0}});
  EXPECT_EQ(table.glyph(55), kNoGlyph);
  EXPECT_EQ(table.glyph(15), 15);
  expectBothSearchesAgree(table);
}

TEST(CmapFormat4, ExtremeFieldsAreHarmless) {
  const auto bytes = CmapBuilder::format4({{65, 66, 5, {7, 8}}, {0x3000, 0x3005, 9}, kLast});
  qxtest::forEachWordExtreme(bytes, [](const std::string& changed) {
    CmapFormat4 table;
    if (readFrom(changed, readFormat4, table)) return;
    table.makeIndex();
    for (const int code : {0, 64, 65, 66, 67, 0x3000, 0x3005, 0x7FFF, 0x8000, 0xFFFE, 0xFFFF}) {
      EXPECT_EQ(table.glyph(code), table.glyphByHalving(code)) << code;
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
