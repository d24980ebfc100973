#include "support/woff_builder.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

TEST(WoffBuilder, WritesHeaderDirectoryAndTables) {
  const std::string packed = zlibBytes("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa");
  WoffBuilder builder;
  builder.deflated("abcd", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", 7).raw("efgh", "12345", 8);
  BeBytes expected;
  const auto packedSize = static_cast<std::uint32_t>(packed.size());
  const std::uint32_t second = 84 + (packedSize + 3) / 4 * 4;
  expected.text("wOFF").u32(0x00010000).u32(second + 8).u16(2).u16(0).u32(12 + 32 + 32 + 8);
  expected.u16(1).u16(0).zeros(20);
  expected.text("abcd").u32(84).u32(packedSize).u32(32).u32(7);
  expected.text("efgh").u32(second).u32(5).u32(5).u32(8);
  expected.text(packed).align(4).text("12345").align(4);
  EXPECT_EQ(builder.build(), expected.str());
  EXPECT_EQ(builder.bytes().at("length"), 8U);
  EXPECT_EQ(builder.bytes().at("totalSfntSize"), 16U);
  EXPECT_EQ(builder.bytes().at("1"), 64U);
}

TEST(WoffBuilder, PacksTheTablesOfAFont) {
  const SfntBuilder font =
      SfntBuilder(SfntBuilder::kOpenType).table("abcd", std::string(100, 'x')).table("efgh", "1");
  const std::string file = WoffBuilder::of(font).build();
  EXPECT_EQ(file.substr(4, 4), "OTTO");
  EXPECT_EQ(file.substr(44, 4), "abcd");
  EXPECT_EQ(file.substr(56, 4), BeBytes().u32(100).str());
  EXPECT_EQ(file.substr(60, 4), font.build().substr(16, 4));
  EXPECT_EQ(file.substr(72, 8), BeBytes().u32(1).u32(1).str());
}

TEST(WoffBuilder, PlacesDataAsTold) {
  WoffBuilder builder;
  builder.raw("aaaa", "1").raw("bbbb", "22").aligned(1).reversed();
  EXPECT_EQ(builder.build().substr(84), "221");
  EXPECT_EQ(builder.build().substr(48, 4), BeBytes().u32(86).str());
}

TEST(WoffBuilder, WritesBrokenHeadersAsTold) {
  WoffBuilder builder;
  builder.flavor(7).totalSfntSize(11).statedCount(9).packed("aaaa", "123", 99);
  const std::string file = builder.build();
  EXPECT_EQ(file.substr(4, 4), BeBytes().u32(7).str());
  EXPECT_EQ(file.substr(12, 8), BeBytes().u16(9).u16(0).u32(11).str());
  EXPECT_EQ(file.substr(52, 8), BeBytes().u32(3).u32(99).str());
}

}  // namespace
}  // namespace qxtest
