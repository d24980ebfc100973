#include "font/cmap/format14.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

#include "common/limits.h"
#include "font/cmap/subtable_streams.h"
#include "support/be_bytes.h"
#include "support/cmap_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using Kind = CmapFormat14::Answer::Kind;
using qxtest::BeBytes;
using qxtest::CmapBuilder;

constexpr std::size_t kFirstRecord = 10;

std::string sample() {
  return CmapBuilder::format14({{0xFE00, {{0x30, 2}, {0x50, 0}}, {{0x31, 9}, {0x41, 0}}},
                                {0xFE01, {}, {{0x4E00, 11}, {0x20000, 12}}},
                                {0xE0100, {{0x4E00, 255}}, {}}});
}

CmapFormat14 read(const std::string& bytes) {
  CmapFormat14 table;
  EXPECT_EQ(readFrom(bytes, readFormat14, table), std::nullopt);
  return table;
}

TableResult failureOf(const std::string& bytes) {
  CmapFormat14 table;
  return readFrom(bytes, readFormat14, table);
}

std::string withLong(std::string bytes, std::size_t at, std::uint32_t value) {
  bytes.replace(at, 4, BeBytes().u32(value).str());
  return bytes;
}

TEST(CmapFormat14, DefaultRangesHaveTheOrdinaryGlyph) {
  const CmapFormat14 table = read(sample());
  for (const int code : {0x30, 0x32, 0x50}) {
    EXPECT_EQ(table.find(code, 0xFE00).kind, Kind::ordinaryGlyph) << code;
  }
  EXPECT_EQ(table.find(0x4E00, 0xE0100).kind, Kind::ordinaryGlyph);
  EXPECT_EQ(table.find(0x4EFF, 0xE0100).kind, Kind::ordinaryGlyph);
  for (const int code : {0x2F, 0x33, 0x4F, 0x51}) {
    EXPECT_EQ(table.find(code, 0xFE00).kind, Kind::none) << code;
  }
}

TEST(CmapFormat14, TheDefaultTableComesFirst) {
  EXPECT_EQ(read(sample()).find(0x31, 0xFE00).kind, Kind::ordinaryGlyph);
}

TEST(CmapFormat14, OwnGlyphsAreAsStoredZeroIncluded) {
  const CmapFormat14 table = read(sample());
  EXPECT_EQ(table.find(0x20000, 0xFE01).glyph, 12);
  const auto zero = table.find(0x41, 0xFE00);
  EXPECT_EQ(zero.kind, Kind::ownGlyph);
  EXPECT_EQ(zero.glyph, 0);
}

TEST(CmapFormat14, UnlistedSequencesHaveNothing) {
  const CmapFormat14 table = read(sample());
  const std::pair<int, int> sequences[] = {{0x4E01, 0xFE01}, {0x30, 0xFDFF},    {0x30, 0xFE02},
                                           {-1, 0xFE00},     {0x30, -1},        {INT_MIN, INT_MIN},
                                           {0x30, INT_MAX},  {INT_MAX, 0xE0100}};
  for (const auto& [code, selector] : sequences) {
    EXPECT_EQ(table.find(code, selector).kind, Kind::none) << code << ' ' << selector;
    EXPECT_EQ(table.find(code, selector).glyph, kNoGlyph);
  }
}

TEST(CmapFormat14, OffsetsWithinTheHeaderOrOutsideAreNoTable) {
  for (const std::uint32_t offset : {0u, 1u, 9u, 5000u, 0xFFFFFFFFu}) {
    const CmapFormat14 noDefault = read(withLong(sample(), kFirstRecord + 3, offset));
    EXPECT_EQ(noDefault.find(0x30, 0xFE00).kind, Kind::none) << offset;
    EXPECT_EQ(noDefault.find(0x31, 0xFE00).glyph, 9) << offset;  // the other table is still asked
    const CmapFormat14 noOwn = read(withLong(sample(), kFirstRecord + 7, offset));
    EXPECT_EQ(noOwn.find(0x41, 0xFE00).kind, Kind::none) << offset;
    EXPECT_EQ(noOwn.find(0x31, 0xFE00).kind, Kind::ordinaryGlyph) << offset;
  }
}

TEST(CmapFormat14, CountsAreClippedToTheBytes) {
  const CmapFormat14 records = read(withLong(sample(), 6, 0xFFFFFFFF));
  EXPECT_EQ(records.find(0x10FFFF, 0x10FFFF).kind, Kind::none);
  const std::string bytes = sample();
  const std::size_t lastTable = bytes.size() - 8;  // count and one range
  const CmapFormat14 ranges = read(withLong(bytes, lastTable, 0xFFFFFFFF));
  EXPECT_EQ(ranges.find(0x4E00, 0xE0100).kind, Kind::ordinaryGlyph);
}

TEST(CmapFormat14, ALengthWithoutRecordsIsAReadErrorByItsCode) {
  const TableResult error = readFailure("'cmap' table format 14 header error");
  for (const std::uint32_t length : {0u, 9u, 10u}) {
    EXPECT_EQ(failureOf(withLong(sample(), 2, length)), error) << length;
  }
  EXPECT_EQ(failureOf(withLong(sample(), 2, 11)), std::nullopt);
}

TEST(CmapFormat14, ACutSubtableNamesThePart) {
  qxtest::forEachPrefix(sample(), [](const std::string& cut) {
    EXPECT_EQ(failureOf(cut), readFailure(cut.size() < 10 ? "'cmap' table format 14 read error"
                                                          : "'cmap' variation selector read error"))
        << cut.size();
  });
  EXPECT_EQ(failureOf(withLong(sample(), 2, 0xFFFFFFFF)),
            readFailure("'cmap' variation selector read error"));
}

std::vector<std::pair<int, int>> listed(const CmapFormat14& table) {
  std::vector<std::pair<int, int>> sequences;
  table.forEach([&](int code, int selector) { sequences.emplace_back(code, selector); });
  return sequences;
}

TEST(CmapFormat14, ListsEachSequenceInFileOrder) {
  const auto sequences = listed(read(sample()));
  ASSERT_EQ(sequences.size(), 3u + 1 + 2 + 2 + 256);
  EXPECT_EQ(sequences[0], std::pair(0x30, 0xFE00));
  EXPECT_EQ(sequences[3], std::pair(0x50, 0xFE00));
  EXPECT_EQ(sequences[4], std::pair(0x31, 0xFE00));
  EXPECT_EQ(sequences[6], std::pair(0x4E00, 0xFE01));
  EXPECT_EQ(sequences.back(), std::pair(0x4EFF, 0xE0100));
}

TEST(CmapFormat14, TablesThatAllRecordsShareDoNotMakeAnEndlessList) {
  constexpr unsigned kMany = 2000;
  BeBytes bytes;
  const auto length = static_cast<std::uint32_t>(10 + 11 * kMany + 4 + 4 * kMany);
  bytes.u16(14).u32(length).u32(kMany);
  for (unsigned i = 0; i < kMany; ++i) bytes.u24(i).u32(10 + 11 * kMany).u32(0);
  bytes.u32(kMany);
  for (unsigned i = 0; i < kMany; ++i) bytes.u24(i).u8(0);
  EXPECT_LE(listed(read(bytes.str())).size(), length / 4);
}

TEST(CmapFormat14, RangesThatOverlapDoNotMakeAnEndlessList) {
  constexpr unsigned kMany = 20'000;  // of 256 codes each
  BeBytes bytes;
  bytes.u16(14).u32(10 + 11 + 4 + 4 * kMany).u32(1).u24(0xFE00).u32(21).u32(0).u32(kMany);
  for (unsigned i = 0; i < kMany; ++i) bytes.u24(0x4E00).u8(255);
  std::size_t count = 0;
  read(bytes.str()).forEach([&](int, int) { ++count; });
  EXPECT_EQ(count, QXCommonNS::limits::kMostVariationSequences);
}

TEST(CmapFormat14, ExtremeFieldsAreHarmless) {
  const auto test = [](const std::string& changed) {
    CmapFormat14 table;
    if (readFrom(changed, readFormat14, table)) return;
    for (const int code : {0, 0x30, 0x4E00, 0x20000, 0xFFFFFF}) {
      for (const int selector : {0xFE00, 0xFE01, 0xE0100}) {
        if (table.find(code, selector).kind != Kind::ownGlyph) {
          EXPECT_EQ(table.find(code, selector).glyph, kNoGlyph);
        }
      }
    }
    EXPECT_LE(listed(table).size(), 256 * changed.size() / 4);
  };
  qxtest::forEachWordExtreme(sample(), test);
  qxtest::forEachLongExtreme(sample(), test);
}

}  // namespace
}  // namespace QXFontService_NS::cmap
