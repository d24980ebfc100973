#include "support/cmap_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(CmapBuilder, RecordsPointToTheSubtablesInOrder) {
  const std::string table = CmapBuilder().add(3, 1, "ab").add(1, 0, "cde").share(0, 3, 0).build();
  BeBytes expected;
  expected.u16(0).u16(3);
  expected.u16(3).u16(1).u32(28).u16(1).u16(0).u32(30).u16(0).u16(3).u32(28).text("abcde");
  EXPECT_EQ(table, expected.str());
}

TEST(CmapBuilder, OffsetsOfTheirOwnStayAsGiven) {
  const std::string table = CmapBuilder().addOffset(3, 1, 0xFFFFFFFF).share(3, 0, 0).build();
  BeBytes expected;
  expected.u16(0).u16(2).u16(3).u16(1).u32(0xFFFFFFFF).u16(3).u16(0).u32(0xFFFFFFFF);
  EXPECT_EQ(table, expected.str());
}

TEST(CmapBuilder, Format0HasOneByteACode) {
  const std::string table = CmapBuilder::format0({{65, 7}});
  ASSERT_EQ(table.size(), 262u);
  EXPECT_EQ(table.substr(0, 6), std::string("\0\0\1\6\0\0", 6));
  EXPECT_EQ(table[6 + 65], 7);
  EXPECT_EQ(table[6 + 66], 0);
}

TEST(CmapBuilder, Format2CountsOffsetsFromTheirOwnField) {
  const std::string table = CmapBuilder::format2({{{}, 0x20, 0, {1, 2}}, {{0x81}, 0x40, 5, {9}}});
  BeBytes expected;
  expected.u16(2).u16(518 + 16 + 6).u16(0);
  for (unsigned high = 0; high < 256; ++high) expected.u16(high == 0x81 ? 8 : 0);
  expected.u16(0x20).u16(2).u16(0).u16(10).u16(0x40).u16(1).u16(5).u16(2 + 4);
  expected.u16(1).u16(2).u16(9);
  EXPECT_EQ(table, expected.str());
}

TEST(CmapBuilder, Format4HasItsArraysOneAfterAnother) {
  const std::string table =
      CmapBuilder::format4({{65, 66, 0, {5, 6}}, {97, 97, -90}, {99, 99, 1, {8}}}, 3);
  BeBytes expected;
  expected.u16(4).u16(16 + 24 + 6).u16(0).u16(6).zeros(6);
  expected.u16(66).u16(97).u16(99).u16(3).u16(65).u16(97).u16(99);
  expected.u16(0).i16(-90).u16(1).u16(6).u16(0).u16(2 + 4).u16(5).u16(6).u16(8);
  EXPECT_EQ(table, expected.str());
}

TEST(CmapBuilder, Format12HasTwelveBytesAGroup) {
  BeBytes expected;
  expected.u16(12).u16(0).u32(28).u32(0).u32(1).u32(0x10000).u32(0x10001).u32(4);
  EXPECT_EQ(CmapBuilder::format12({{0x10000, 0x10001, 4}}), expected.str());
}

TEST(CmapBuilder, Format14LeavesEmptyTablesOut) {
  const std::string table =
      CmapBuilder::format14({{0xFE00, {{0x30, 2}}, {}}, {0xE0100, {}, {{0x4E00, 9}}}});
  BeBytes expected;
  expected.u16(14).u32(10 + 22 + 8 + 9).u32(2);
  expected.u24(0xFE00).u32(32).u32(0).u24(0xE0100).u32(0).u32(40);
  expected.u32(1).u24(0x30).u8(2).u32(1).u24(0x4E00).u16(9);
  EXPECT_EQ(table, expected.str());
}

TEST(CmapBuilder, Format6IsATrimmedArray) {
  BeBytes expected;
  expected.u16(6).u16(14).u16(0).u16(65).u16(2).u16(3).u16(4);
  EXPECT_EQ(CmapBuilder::format6(65, {3, 4}), expected.str());
}

}  // namespace
}  // namespace qxtest
