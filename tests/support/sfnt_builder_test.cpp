#include "support/sfnt_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"
#include "support/table_builders.h"

namespace qxtest {
namespace {

TEST(SfntBuilder, WritesOffsetTableDirectoryAndAlignedTables) {
  SfntBuilder font;
  font.table("abcd", "12345").table("cvt", "xy");
  BeBytes expected;
  expected.u32(0x00010000).u16(2).u16(32).u16(1).u16(0);
  expected.tag("abcd").u32(0x31323334 + 0x35000000).u32(44).u32(5);
  expected.tag("cvt ").u32(0x78790000).u32(52).u32(2);
  expected.text("12345").align(4).text("xy").align(4);
  EXPECT_EQ(font.build(), expected.str());
  EXPECT_EQ(font.offsetOf("cvt"), 52u);
  EXPECT_EQ(font.bytesOf("cvt "), "xy");
}

TEST(SfntBuilder, SumsToTheMagicNumberWithHead) {
  SfntBuilder font;
  font.table("head", HeadBuilder().build()).table("cvt", "xyz");
  EXPECT_EQ(tableChecksum(font.build()), 0xB1B0AFBAu);
}

TEST(SfntBuilder, OffsetsCountFromTheBase) {
  const std::string member = SfntBuilder().table("abcd", "1234").build(100);
  EXPECT_EQ(member.substr(12 + 8, 4), BeBytes().u32(128).str());
}

TEST(SfntBuilder, ReplacesAndRemovesTables) {
  SfntBuilder font;
  font.table("a", "1").table("b", "2").table("a", "3").without("b");
  EXPECT_EQ(font.bytesOf("a"), "3");
  EXPECT_THROW((void)font.bytesOf("b"), std::out_of_range);
  EXPECT_THROW((void)font.offsetOf("b"), std::out_of_range);
  EXPECT_EQ(font.build().size(), 12u + 16 + 4);
}

TEST(SfntBuilder, WritesBrokenDirectoriesAsTold) {
  SfntBuilder font(SfntBuilder::kApple);
  font.version(SfntBuilder::kOpenType).table("a", "1").statedLength("a", 99);
  font.rawEntry("b", 7, 8).statedCount(5);
  const std::string bytes = font.build();
  EXPECT_EQ(bytes.substr(0, 6), BeBytes().tag("OTTO").u16(5).str());
  EXPECT_EQ(bytes.substr(24, 4), BeBytes().u32(99).str());
  EXPECT_EQ(bytes.substr(28, 16), BeBytes().tag("b").u32(0).u32(7).u32(8).str());
}

TEST(TableChecksum, FillsTheLastWordWithZeros) {
  EXPECT_EQ(tableChecksum(""), 0u);
  EXPECT_EQ(tableChecksum(std::string("\0\0\0\1\1", 5)), 0x01000001u);
  EXPECT_EQ(tableChecksum("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), 0xFFFFFFFEu);
}

}  // namespace
}  // namespace qxtest
