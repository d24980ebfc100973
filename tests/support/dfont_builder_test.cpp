#include "support/dfont_builder.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

TEST(DfontBuilder, WritesHeaderDataAndMap) {
  DfontBuilder builder;
  builder.resource("sfnt", "one").resource("FOND", "info").resource("sfnt", "two");
  BeBytes expected;
  expected.u32(256).u32(256 + 22).u32(22).u32(0).zeros(240);
  expected.u32(3).text("one").u32(4).text("info").u32(3).text("two");
  expected.zeros(24).u16(28).u16(0);
  expected.u16(1).text("sfnt").u16(1).u16(18).text("FOND").u16(0).u16(42);
  expected.u16(128).u16(0xFFFF).u8(0).u24(0).u32(0);
  expected.u16(129).u16(0xFFFF).u8(0).u24(15).u32(0);
  expected.u16(130).u16(0xFFFF).u8(0).u24(7).u32(0);
  EXPECT_EQ(builder.build(), expected.str());
}

TEST(DfontBuilder, LabelsItsFields) {
  const BeBytes file = DfontBuilder().resource("sfnt", "one").bytes();
  const std::size_t map = 256 + 7;
  EXPECT_EQ(file.at("dataOffset"), 0u);
  EXPECT_EQ(file.at("mapOffset"), 4u);
  EXPECT_EQ(file.at("map"), map);
  EXPECT_EQ(file.at("typeListOffset"), map + 24);
  EXPECT_EQ(file.at("numTypes"), map + 28);
  EXPECT_EQ(file.at("sfnt"), map + 30);
  EXPECT_EQ(file.at("sfnt.count"), map + 34);
  EXPECT_EQ(file.at("sfnt.list"), map + 36);
  EXPECT_EQ(file.at("ref0"), map + 38);
}

TEST(DfontBuilder, StatesLengthsAsTold) {
  const std::string file = DfontBuilder().resource("sfnt", "one").statedLength(99).build();
  EXPECT_EQ(file.substr(256, 7), BeBytes().u32(99).text("one").str());
}

TEST(DfontBuilder, WithoutResourcesTheTypeCountIsMinusOne) {
  const BeBytes file = DfontBuilder().bytes();
  EXPECT_EQ(file.str().substr(file.at("numTypes")), BeBytes().u16(0xFFFF).str());
}

}  // namespace
}  // namespace qxtest
