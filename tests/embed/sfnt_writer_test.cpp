#include "embed/sfnt_writer.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::bytes::ByteView;
using qxtest::BeBytes;
using qxtest::SfntBuilder;

/// `fresh` in place of the tables of `builder`.
std::string written(OpenedSfnt& font, const NewTables& fresh, const std::uint32_t* tags = nullptr) {
  SubsetTables tables;
  EXPECT_TRUE(selectTables(font.source, tags, tables));
  return formOf([&](QXMemStream& out) { return writeSfnt(font.source, fresh, tables, out); });
}

TEST(SfntWriter, WritesOffsetTableDirectoryAndTablesWithoutPaddingAtTheEnd) {
  OpenedSfnt font(SfntBuilder().table("prep", "ppppp").table("CFF", "c").table("OS/2", "oo"));
  BeBytes expected;
  expected.u32(SfntBuilder::kTrueType).u16(3).u16(32).u16(1).u16(16);
  expected.tag("CFF").u32(0x63000000).u32(60).u32(1);
  expected.tag("OS/2").u32(0x6F6F0000).u32(64).u32(2);
  expected.tag("prep").u32(0x70707070u + 0x70000000u).u32(68).u32(5);
  expected.text("c").zeros(3).text("oo").zeros(2).text("ppppp");
  EXPECT_EQ(written(font, {}), expected.str());
}

TEST(SfntWriter, TheLastTableIsNotPadded) {
  for (std::size_t size = 0; size < 5; ++size) {
    OpenedSfnt font(SfntBuilder().table("CFF", "cccc").table("zzzz", std::string(size, 'z')));
    EXPECT_EQ(written(font, {}).size(), 12 + 2 * 16 + 4 + size);
  }
}

TEST(SfntWriter, NewTablesGetTheirChecksumAndTheirLengthButForLoca) {
  OpenedSfnt font(
      SfntBuilder().table("CFF", "old").table("glyf", "oldglyf").table("loca", "oldloca"));
  const std::string pieces[] = {"one", "two4", ""};
  const std::vector<ByteView> glyf{viewOf(pieces[0]), viewOf(pieces[1]), viewOf(pieces[2])};
  const std::string loca = "newloca";
  QXMemStream cff(nullptr, 8192, false, true);
  appendText(cff, "newcff");
  cff.seekg(3);
  const WrittenSfnt sfnt(written(font, {.glyf = glyf, .loca = viewOf(loca), .cff = &cff}));
  EXPECT_EQ(sfnt.bodies.at("glyf"), "onetwo4");
  EXPECT_EQ(sfnt.checkSums.at("glyf"), qxtest::tableChecksum("onetwo4"));
  EXPECT_EQ(sfnt.bodies.at("loca"), "newloca");
  EXPECT_EQ(sfnt.checkSums.at("loca"), qxtest::tableChecksum("newloca"));
  EXPECT_EQ(sfnt.bodies.at("CFF "), "newcff");
  EXPECT_EQ(sfnt.checkSums.at("CFF "), qxtest::tableChecksum("newcff"));
}

TEST(SfntWriter, TheLengthOfLocaStaysThoughTheNewOneIsShorter) {
  OpenedSfnt font(SfntBuilder().table("glyf", "g").table("loca", "oldloca"));
  const std::vector<ByteView> glyf;
  const std::string loca = "new";
  const std::string bytes = written(font, {.glyf = glyf, .loca = viewOf(loca)});
  EXPECT_EQ(viewOf(bytes).u32(12 + 16 + 12), 7u);
  EXPECT_EQ(bytes.substr(bytes.size() - 3), "new");
}

TEST(SfntWriter, AnEmptyNewGlyfIsNotTakenFromTheSource) {
  OpenedSfnt font(SfntBuilder().table("glyf", "oldglyf").table("loca", "0123"));
  const std::vector<ByteView> glyf;
  const std::string loca = "4567";
  const WrittenSfnt sfnt(written(font, {.glyf = glyf, .loca = viewOf(loca)}));
  EXPECT_EQ(sfnt.bodies.at("glyf"), "");
  EXPECT_EQ(sfnt.checkSums.at("glyf"), 0u);
  EXPECT_EQ(sfnt.offsets.at("glyf"), sfnt.offsets.at("loca"));
  EXPECT_EQ(sfnt.bytes.size(), 12u + 32u + 4u);
}

// Kept: readers do not ask for it, and the bytes are compared with documents written long ago.
TEST(SfntWriter, CheckSumAdjustmentIsThatOfTheSource) {
  SfntBuilder builder;
  builder.table("glyf", "g").table("loca", "l").table("head", std::string(54, 'h'));
  const std::string source = builder.build();
  OpenedSfnt font(source);
  const std::uint32_t list[] = {kHeadTag, 0};
  const std::vector<ByteView> glyf;
  const WrittenSfnt sfnt(written(font, {.glyf = glyf, .loca = ByteView()}, list));
  EXPECT_EQ(sfnt.bodies.at("head"), source.substr(builder.offsetOf("head"), 54));
  EXPECT_NE(qxtest::tableChecksum(sfnt.bytes), 0xB1B0AFBAu);
}

TEST(SfntWriter, UntouchedRecordsKeepTheChecksumOfTheSourceThoughItIsWrong) {
  std::string source = SfntBuilder().table("CFF", "c").build();
  source.replace(16, 4, "\x12\x34\x56\x78");
  OpenedSfnt font(source);
  EXPECT_EQ(WrittenSfnt(written(font, {})).checkSums.at("CFF "), 0x12345678u);
}

TEST(SfntWriter, AShortReadIsNoFailure) {
  const SfntBuilder builder = SfntBuilder().table("CFF", "ccccc").table("zzzz", "zzzzz");
  const std::string source = builder.build();
  OpenedSfnt font(source, source.substr(0, builder.offsetOf("CFF") + 2));
  const std::string bytes = written(font, {});
  EXPECT_EQ(bytes.size(), 12u + 32u + 4u);
  EXPECT_EQ(bytes.substr(44), std::string("cc\0\0", 4));
  EXPECT_EQ(viewOf(bytes).u32(12 + 12), 5u);
}

TEST(SfntWriter, ATableOfFourGigabytesIsCopiedAsFarAsTheSourceGoes) {
  const SfntBuilder builder =
      SfntBuilder().table("CFF", "cccc").table("zzzz", "zzzz").statedLength("CFF", 0xFFFFFFFE);
  OpenedSfnt font(builder);
  const std::string bytes = written(font, {});
  EXPECT_EQ(bytes.substr(44), "cccczzzzzzzz");
  EXPECT_EQ(viewOf(bytes).u32(12 + 8), 44u);
  EXPECT_EQ(viewOf(bytes).u32(12 + 16 + 8), 44u);  // 44 + 0xFFFFFFFE, rounded up, in 32 bits
}

TEST(SfntWriter, TablesThatAllPointAtTheSameBytesAreRefused) {
  constexpr std::uint32_t kSize = 1 << 20;
  const auto font = [](unsigned count) {
    SfntBuilder builder;
    builder.table("CFF", std::string(kSize, 'c'));
    for (unsigned i = 0; i < count; ++i) {
      std::string tag = "t00";
      tag[1] = static_cast<char>('a' + i / 10);
      tag[2] = static_cast<char>('0' + i % 10);
      builder.rawEntry(tag, static_cast<std::uint32_t>(builder.offsetOf("CFF")) + 16, kSize - 16);
    }
    return builder;
  };
  OpenedSfnt fine(font(3));
  EXPECT_NE(written(fine, {}), "false");
  OpenedSfnt bad(font(12));
  EXPECT_EQ(written(bad, {}), "false");
}

}  // namespace
}  // namespace QXFontService_NS::embed
