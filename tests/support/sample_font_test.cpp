#include "support/sample_font.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

TEST(SampleFont, HasTheTablesOfATrueTypeFontAndSumsUp) {
  const SfntBuilder font = sampleFont();
  for (const char* tag :
       {"OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "name", "post"})
    EXPECT_FALSE(font.bytesOf(tag).empty()) << tag;
  EXPECT_EQ(tableChecksum(font.build()), 0xB1B0AFBAu);
  EXPECT_LT(font.build().size(), 1200u);
}

}  // namespace
}  // namespace qxtest
