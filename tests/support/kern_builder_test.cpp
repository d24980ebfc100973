#include "support/kern_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(KernBuilder, SubtablesFollowTheHeader) {
  const std::string table =
      KernBuilder().raw(0x0200, "xy").format0({{1, 2, -30}, {1, 3, 7}}).build();
  BeBytes expected;
  expected.u16(0).u16(2);
  expected.u16(0).u16(8).u16(0x0200).text("xy");
  expected.u16(0).u16(26).u16(1).u16(2).zeros(6).u16(1).u16(2).i16(-30).u16(1).u16(3).u16(7);
  EXPECT_EQ(table, expected.str());
}

TEST(KernBuilder, TheLengthWrapsWherePairsAreMany) {
  const std::string table = KernBuilder().format0(std::vector<KernPair>(11000)).build();
  EXPECT_EQ(table.size(), 4u + 14 + 66000);
  EXPECT_EQ(table.substr(6, 2), BeBytes().u16((14 + 66000) & 0xFFFF).str());
}

}  // namespace
}  // namespace qxtest
