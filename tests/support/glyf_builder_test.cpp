#include "support/glyf_builder.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace qxtest {
namespace {

TEST(GlyfBuilder, WritesSimpleGlyphs) {
  const std::string glyf = GlyfBuilder().square(500).glyf();
  BeBytes expected;
  expected.u16(1).i16(0).i16(0).i16(500).i16(500).u16(3).u16(0);
  expected.u8(1).u8(1).u8(1).u8(1);
  expected.i16(0).i16(0).i16(500).i16(0).i16(0).i16(500).i16(0).i16(-500).align(4);
  EXPECT_EQ(glyf, expected.str());
}

TEST(GlyfBuilder, WritesCompositesWithTheMoreFlag) {
  const std::string glyf =
      GlyfBuilder().composite({{1, 10, -20}, {2, 0, 0, 0x0008, {0x2000}}}).glyf();
  BeBytes expected;
  expected.i16(-1).zeros(8);
  expected.u16(0x0023).u16(1).i16(10).i16(-20);
  expected.u16(0x000B).u16(2).i16(0).i16(0).u16(0x2000).align(4);
  EXPECT_EQ(glyf, expected.str());
}

TEST(GlyfBuilder, LocaHasOneEntryMoreThanGlyphs) {
  GlyfBuilder glyphs;
  glyphs.empty().raw("12345").empty();
  EXPECT_EQ(glyphs.count(), 3u);
  EXPECT_EQ(glyphs.loca(), BeBytes().u16(0).u16(0).u16(4).u16(4).str());
  EXPECT_EQ(glyphs.loca(true), BeBytes().u32(0).u32(0).u32(8).u32(8).str());
}

}  // namespace
}  // namespace qxtest
