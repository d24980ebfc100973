#include "font/cmap/format2.h"

#include <gtest/gtest.h>

#include <climits>

#include "font/cmap/subtable_streams.h"
#include "support/cmap_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::CmapBuilder;

constexpr std::size_t kSubHeaders = 518;

/// Single bytes 0x41 to 0x43; lead bytes 0x81 and 0x82 with one sub-header, 0x90 with another.
std::string sample() {
  return CmapBuilder::format2(
      {{{}, 0x41, 0, {1, 2, 3}}, {{0x81, 0x82}, 0x40, 10, {4, 0, 5}}, {{0x90}, 0xF0, -3, {3, 9}}});
}

CmapFormat2 read(const std::string& bytes) {
  CmapFormat2 table;
  EXPECT_EQ(readFrom(bytes, readFormat2, table), std::nullopt);
  return table;
}

TEST(CmapFormat2, MapsCodesOfOneAndTwoBytes) {
  const CmapFormat2 table = read(sample());
  EXPECT_EQ(table.glyph(0x41), 1);
  EXPECT_EQ(table.glyph(0x43), 3);
  EXPECT_EQ(table.glyph(0x8140), 14);
  EXPECT_EQ(table.glyph(0x8142), 15);
  EXPECT_EQ(table.glyph(0x8240), 14);
  EXPECT_EQ(table.glyph(0x90F1), 6);
}

TEST(CmapFormat2, TheGlyphIndexIsKeptOneTooHigh) {
  const CmapFormat2 table = read(sample());
  EXPECT_EQ(table.subHeaders.at(0).glyphIndex, 1);
  EXPECT_EQ(table.subHeaders.at(0x81).glyphIndex, 4);
  EXPECT_EQ(table.subHeaders.at(0x90).glyphIndex, 7);
}

TEST(CmapFormat2, OnlyLeadBytesAndZeroHaveEntries) {
  const CmapFormat2 table = read(sample());
  EXPECT_EQ(table.subHeaders.size(), 4u);
  EXPECT_EQ(table.glyph(0x8340), kNoGlyph);
}

TEST(CmapFormat2, AWordOfZeroIsNoGlyphWhateverTheDelta) {
  EXPECT_EQ(read(sample()).glyph(0x8141), kNoGlyph);
}

TEST(CmapFormat2, ASumOfZeroIsNoGlyph) {
  EXPECT_EQ(read(sample()).glyph(0x90F0), kNoGlyph);
}

TEST(CmapFormat2, LowBytesOutsideTheEntriesMiss) {
  const CmapFormat2 table = read(sample());
  for (const int code : {0x40, 0x44, 0x813F, 0x8143, 0x90EF, 0x90F2}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
  }
}

TEST(CmapFormat2, CodesOfMoreThanTwoBytesMiss) {
  const CmapFormat2 table = read(sample());
  for (const int code : {-1, INT_MIN, 0x10041, 0x18140, INT_MAX}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
  }
}

TEST(CmapFormat2, TheSumIsCutToSixteenBits) {
  EXPECT_EQ(read(CmapBuilder::format2({{{}, 1, 2, {0xFFFF}}})).glyph(1), 1);
}

TEST(CmapFormat2, NoRangeOffsetIsNoGlyph) {
  const CmapFormat2 table = read(withWord(sample(), kSubHeaders + 6, 0));
  EXPECT_EQ(table.subHeaders.at(0).glyphIndex, 0);
  EXPECT_EQ(table.glyph(0x41), kNoGlyph);
}

TEST(CmapFormat2, IndicesOutsideTheArrayMiss) {
  // Two bytes below the first word, and so far up that only the first code is inside.
  const CmapFormat2 below = read(withWord(sample(), kSubHeaders + 6, 2 + 16 - 4));
  EXPECT_EQ(below.subHeaders.at(0).glyphIndex, -1);
  EXPECT_EQ(below.glyph(0x41), kNoGlyph);
  EXPECT_EQ(below.glyph(0x43), 1);
  const CmapFormat2 above = read(withWord(sample(), kSubHeaders + 6, 2 + 16 + 14));
  EXPECT_EQ(above.glyph(0x41), 9);
  EXPECT_EQ(above.glyph(0x42), kNoGlyph);
}

TEST(CmapFormat2, CharCountCountsASharedSubHeaderForEachHighByte) {
  EXPECT_EQ(read(sample()).charCount, 3u + 3 + 3 + 2);
}

TEST(CmapFormat2, HighByteZeroMayHaveAKeyOfItsOwn) {
  const CmapFormat2 table = read(withWord(sample(), 6, 8));
  EXPECT_EQ(table.glyph(0x40), 14);
  EXPECT_EQ(table.charCount, 3u + 3 + 3 + 2);
}

TEST(CmapFormat2, KeysThatAreNoMultipleOfEightAreRoundedDown) {
  EXPECT_EQ(read(withWord(sample(), 6 + 2 * 0x81, 8 + 7)).glyph(0x8140), 14);
}

TEST(CmapFormat2, ALengthBelowTheSubHeadersIsAnEmptyArray) {
  const CmapFormat2 table = read(withWord(sample(), 2, 517));
  EXPECT_TRUE(table.glyphIndexArray.empty());
  EXPECT_EQ(table.glyph(0x41), kNoGlyph);
}

TEST(CmapFormat2, AnOddByteAtTheEndIsNotRead) {
  std::string bytes = sample();
  bytes = withWord(bytes, 2, static_cast<unsigned>(bytes.size() + 1));
  EXPECT_EQ(read(bytes).glyphIndexArray.size(), 8u);
}

TEST(CmapFormat2, ACutSubtableNamesThePart) {
  constexpr std::size_t kArray = kSubHeaders + 24;
  qxtest::forEachPrefix(sample(), [](const std::string& cut) {
    const std::string part = cut.size() < kSubHeaders ? ""
                             : cut.size() < kArray    ? " SubHeaders"
                                                      : " glyphIndexArray";
    CmapFormat2 table;
    EXPECT_EQ(readFrom(cut, readFormat2, table),
              readFailure("'cmap' table format 2" + part + " read error"))
        << cut.size();
  });
}

TEST(CmapFormat2, ExtremeFieldsAreHarmless) {
  qxtest::forEachWordExtreme(sample(), [](const std::string& changed) {
    CmapFormat2 table;
    if (readFrom(changed, readFormat2, table)) return;
    for (const int code : {0, 0x41, 0xFF, 0x8140, 0x90F1, 0xFFFF}) {
      EXPECT_NE(table.glyph(code), 0) << code;
    }
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
