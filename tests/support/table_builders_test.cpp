#include "support/table_builders.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(TableBuilders, SizesAreThoseOfTheFormats) {
  EXPECT_EQ(HeadBuilder().build().size(), 54u);
  EXPECT_EQ(HheaBuilder().build().size(), 36u);
  EXPECT_EQ(PostBuilder().build().size(), 32u);
  EXPECT_EQ(MaxpBuilder().build().size(), 32u);
  EXPECT_EQ(MaxpBuilder{.version = 0x00005000}.build().size(), 6u);
}

TEST(TableBuilders, Os2GrowsWithItsVersion) {
  const unsigned sizes[] = {78, 86, 96, 96, 96, 100};
  for (unsigned version = 0; version < 6; ++version)
    EXPECT_EQ(Os2Builder{.version = version}.build().size(), sizes[version]) << version;
}

TEST(TableBuilders, HeadFieldsStandAtTheirOffsets) {
  const std::string head = HeadBuilder{.unitsPerEm = 2048, .macStyle = 3}.build();
  EXPECT_EQ(head.substr(18, 2), BeBytes().u16(2048).str());
  EXPECT_EQ(head.substr(36, 10), BeBytes().i16(-50).i16(-200).i16(950).i16(800).u16(3).str());
}

TEST(TableBuilders, HheaCountStandsLast) {
  EXPECT_EQ(HheaBuilder{.numberOfMetrics = 7}.build().substr(34), BeBytes().u16(7).str());
}

TEST(TableBuilders, Os2FieldsStandAtTheirOffsets) {
  const std::string os2 = Os2Builder{.familyClass = 12, .familySubclass = 1}.build();
  EXPECT_EQ(os2.substr(30, 2), BeBytes().u8(12).u8(1).str());
  EXPECT_EQ(os2.substr(62, 2), BeBytes().u16(0x40).str());
  EXPECT_EQ(os2.substr(74, 4), BeBytes().u16(900).u16(300).str());
  EXPECT_EQ(os2.substr(86, 4), BeBytes().i16(480).i16(700).str());
}

TEST(TableBuilders, PostFieldsStandAtTheirOffsets) {
  const std::string post = PostBuilder{.italicAngle = -12 * 65536, .isFixedPitch = 1}.build();
  EXPECT_EQ(post.substr(4, 12), BeBytes().i16(-12).u16(0).i16(-100).i16(50).u32(1).str());
}

TEST(TableBuilders, MetricsEndInBearings) {
  const MetricsBuilder metrics{.metrics = {{500, -1}, {600, 2}}, .bearings = {3}};
  EXPECT_EQ(metrics.build(), BeBytes().u16(500).i16(-1).u16(600).i16(2).i16(3).str());
}

}  // namespace
}  // namespace qxtest
