#include "support/sample_open_type.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

TEST(SampleOpenType, HasTheTablesOfTheSampleFontWithCffForGlyf) {
  CffBuilder cff = sampleCff();
  const SfntBuilder font = sampleOpenType(cff);
  const std::string bytes = font.build();
  EXPECT_EQ(bytes.substr(0, 4), "OTTO");
  EXPECT_EQ(bytes.substr(font.offsetOf("CFF "), cff.build().size()), cff.build());
  EXPECT_EQ(bytes.find("glyf"), std::string::npos);
}

TEST(SampleOpenType, TheCidKeyedOneHasTwoFontDicts) {
  CffBuilder cff = sampleCidCff();
  ASSERT_FALSE(cff.build().empty());
  EXPECT_NE(cff.at("FDArray"), 0u);
  EXPECT_NE(cff.at("FDSelect"), 0u);
  EXPECT_NE(cff.at("Private1"), 0u);
}

}  // namespace
}  // namespace qxtest
