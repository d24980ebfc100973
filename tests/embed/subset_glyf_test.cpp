#include "embed/subset_glyf.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;

struct Rebuilt {
  std::string glyf, loca;
};

Rebuilt rebuilt(OpenedSfnt& font, const Gids& gids) {
  SubsetTables tables;
  EXPECT_TRUE(selectTables(font.source, nullptr, tables));
  SubsetGlyphs subset(font.source);
  EXPECT_TRUE(subset.fill(gids));
  Rebuilt result;
  for (const auto& piece : subsetGlyf(subset)) result.glyf += textOf(piece);
  result.loca = textOf(QXCommonNS::bytes::ByteView(subsetLoca(subset)));
  return result;
}

Rebuilt rebuilt(const SfntBuilder& builder, const Gids& gids, int format, unsigned count = 0) {
  OpenedSfnt font(builder, format);
  font.source.glyphCount = count;
  return rebuilt(font, gids);
}

SfntBuilder fontWith(const std::string& glyf, const std::string& loca) {
  return SfntBuilder().table("loca", loca).table("glyf", glyf);
}

TEST(SubsetGlyf, GlyphsGoBackToBackAndDroppedOnesTakeNoRoom) {
  const Rebuilt font = rebuilt(fontOf({"aa", "bbb", "c", "dddd"}), {3, 1}, 1);
  EXPECT_EQ(font.glyf, "aabbbdddd");
  EXPECT_EQ(font.loca, BeBytes().u32(0).u32(2).u32(5).u32(5).u32(9).str());
}

TEST(SubsetGlyf, TheShortFormStaysShort) {
  const std::string loca = BeBytes().u16(0).u16(1).u16(3).u16(4).str();
  const Rebuilt font = rebuilt(fontWith("aabbbbcc", loca), {2}, 0);
  EXPECT_EQ(font.glyf, "aacc");
  EXPECT_EQ(font.loca, BeBytes().u16(0).u16(1).u16(1).u16(2).str());
}

// Kept: nothing is aligned. Offsets of the short form are even, so an odd length is that of a last
// glyph which ends with the table; what would follow it is cut to half of an odd number.
TEST(SubsetGlyf, AnOddLengthIsNotAlignedInAShortLoca) {
  const std::string loca = BeBytes().u16(0).u16(1).str();
  const Rebuilt font = rebuilt(fontWith("aabbb", loca), {1}, 0);
  EXPECT_EQ(font.glyf, "aabbb");
  EXPECT_EQ(font.loca, loca);
}

TEST(SubsetGlyf, AnOffsetThatTheShortFormCannotHoldIsCutTo16Bits) {
  BeBytes loca;
  loca.u16(0).u16(0xFFFF).u16(0).u16(0xFFFF).u16(0xFFFF);
  const Rebuilt font = rebuilt(fontWith(std::string(300'000, 'g'), loca.str()), {2}, 0);
  EXPECT_EQ(font.glyf.size(), 2u * 131'070u);
  EXPECT_EQ(font.loca, BeBytes().u16(0).u16(0xFFFF).u16(0xFFFF).u16(0xFFFE).u16(0xFFFE).str());
}

TEST(SubsetGlyf, BytesBehindTheLastWholeEntryAreZero) {
  const std::string loca = BeBytes().u16(0).u16(1).u8(0xAB).str();
  EXPECT_EQ(rebuilt(fontWith("aabb", loca), {}, 0).loca, BeBytes().u16(0).u16(1).u8(0).str());
}

TEST(SubsetGlyf, OnlyEmptyGlyphsLeaveNothing) {
  const Rebuilt font = rebuilt(fontOf({"", "bbb", ""}), {2}, 1);
  EXPECT_EQ(font.glyf, "");
  EXPECT_EQ(font.loca, std::string(16, '\0'));
}

TEST(SubsetGlyf, PaddingBehindTheLastGlyphIsNoGlyph) {
  SfntBuilder builder = fontOf({"aa", "bb"});
  builder.table("glyf", "aabb++");
  EXPECT_EQ(rebuilt(builder, {1, 2, 7}, 1, 2).glyf, "aabb");
  EXPECT_EQ(rebuilt(builder, {1, 2, 7}, 1, 2).loca, BeBytes().u32(0).u32(2).u32(4).str());
}

TEST(SubsetGlyf, ALocaOneEntryShortKeepsTheLastGlyphWhole) {
  const std::string loca = BeBytes().u32(0).u32(2).str();
  const Rebuilt font = rebuilt(fontWith("aabb", loca), {1}, 1, 2);
  EXPECT_EQ(font.glyf, "aabb");
  EXPECT_EQ(font.loca, BeBytes().u32(0).u32(2).str());
}

TEST(SubsetGlyf, TheOffsetsGrowByWhatLocaSaysThoughTheBytesAreNotThere) {
  const std::string loca = BeBytes().u32(0).u32(1000).u32(1004).u32(1004).str();
  const Rebuilt font = rebuilt(fontWith("aabb", loca), {1}, 1);
  EXPECT_EQ(font.glyf, "aabb");
  EXPECT_EQ(font.loca, BeBytes().u32(0).u32(1000).u32(1004).u32(1004).str());
}

TEST(SubsetGlyf, ALocaWithMoreEntriesThanIdsIsWalkedToItsEnd) {
  BeBytes loca;
  for (int i = 0; i < 0x10004; ++i) loca.u16(i == 0 ? 0 : 1);
  const Rebuilt font = rebuilt(fontWith("aabb", loca.str()), {}, 0);
  ASSERT_EQ(font.loca.size(), std::size_t{0x10004} * 2);
  EXPECT_EQ(font.loca.substr(font.loca.size() - 2), BeBytes().u16(1).str());
}

}  // namespace
}  // namespace QXFontService_NS::embed
