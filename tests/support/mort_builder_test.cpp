#include "support/mort_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(MortBuilder, AChainHasItsFeaturesBeforeItsSubtables) {
  const std::string table = MortBuilder().chain({"abcd"}, 2).chain({}, 0).build();
  BeBytes expected;
  expected.u32(0x00010000).u32(2);
  expected.u32(1).u32(40).u16(2).u16(1).zeros(24).text("abcd");
  expected.u32(1).u32(12).u16(0).u16(0);
  EXPECT_EQ(table, expected.str());
}

TEST(MortBuilder, ASubtableHasItsUnitsBehindTheSearchHeader) {
  BeBytes expected;
  expected.u16(28).u16(0x8004).u32(1).u16(6).u16(4).u16(2).zeros(6);
  expected.u16(3).u16(9).u16(0xFFFF).u16(0xFFFF);
  EXPECT_EQ(MortBuilder::subtable({{3, 9}, {0xFFFF, 0xFFFF}}), expected.str());
}

}  // namespace
}  // namespace qxtest
