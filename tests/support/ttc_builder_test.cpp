#include "support/ttc_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

SfntBuilder member(const char* bytes) {
  return SfntBuilder().table("abcd", bytes);
}

TEST(TtcBuilder, WritesHeaderOffsetsAndMembers) {
  const std::string file = TtcBuilder().member(member("one.")).member(member("two.")).build();
  BeBytes expected;
  expected.text("ttcf").u32(0x00010000).u32(2).u32(20).u32(52);
  expected.text(member("one.").build(20)).text(member("two.").build(52));
  EXPECT_EQ(file, expected.str());
}

TEST(TtcBuilder, TableOffsetsCountFromTheStartOfTheFile) {
  TtcBuilder builder;
  builder.member(member("one.")).member(member("two."));
  const std::string file = builder.build();
  EXPECT_EQ(builder.offsetOf(1), 52u);
  EXPECT_EQ(file.substr(52 + 12 + 8, 4), BeBytes().u32(80).str());
  EXPECT_EQ(file.substr(80, 4), "two.");
}

TEST(TtcBuilder, ListsMembersInAnyOrderAndAgain) {
  TtcBuilder builder;
  builder.member(member("one.")).member(member("two.")).listed({1, 0, 1});
  EXPECT_EQ(builder.build().substr(8, 16), BeBytes().u32(3).u32(56).u32(24).u32(56).str());
}

TEST(TtcBuilder, WritesBrokenHeadersAsTold) {
  TtcBuilder builder;
  builder.tag("otcf").version(0x00020000).member(member("")).statedCount(9).statedOffset(0, 7);
  EXPECT_EQ(builder.build().substr(0, 16),
            BeBytes().text("otcf").u32(0x00020000).u32(9).u32(7).str());
}

}  // namespace
}  // namespace qxtest
