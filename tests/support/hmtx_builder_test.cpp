#include "support/hmtx_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(HmtxBuilder, BearingsAreTheIndices) {
  BeBytes expected;
  expected.u16(500).u16(0).u16(600).u16(1).u16(2).u16(3);
  EXPECT_EQ(hmtxTable({500, 600}, 2), expected.str());
}

}  // namespace
}  // namespace qxtest
