#include "font/cmap/format0.h"

#include <gtest/gtest.h>

#include <climits>

#include "font/cmap/subtable_streams.h"
#include "support/cmap_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cmap {
namespace {

using qxtest::CmapBuilder;

TEST(CmapFormat0, MapsCodesToBytes) {
  CmapFormat0 table;
  ASSERT_EQ(readFrom(CmapBuilder::format0({{0, 9}, {65, 7}, {255, 255}}), readFormat0, table),
            std::nullopt);
  EXPECT_EQ(table.glyph(0), 9);
  EXPECT_EQ(table.glyph(65), 7);
  EXPECT_EQ(table.glyph(255), 255);
}

TEST(CmapFormat0, GlyphZeroIsNone) {
  CmapFormat0 table;
  ASSERT_EQ(readFrom(CmapBuilder::format0({{65, 7}}), readFormat0, table), std::nullopt);
  EXPECT_EQ(table.glyph(66), kNoGlyph);
}

TEST(CmapFormat0, CodesOutsideAByteMiss) {
  CmapFormat0 table;
  table.glyphIdArray.fill(5);
  for (const int code : {-1, INT_MIN, 256, 0x10000 + 65, INT_MAX}) {
    EXPECT_EQ(table.glyph(code), kNoGlyph) << code;
  }
}

TEST(CmapFormat0, CharCountIsOneMoreThanTheCodesWithAGlyph) {
  CmapFormat0 table;
  ASSERT_EQ(readFrom(CmapBuilder::format0({}), readFormat0, table), std::nullopt);
  EXPECT_EQ(table.charCount, 1u);
  ASSERT_EQ(readFrom(CmapBuilder::format0({{1, 1}, {2, 2}}), readFormat0, table), std::nullopt);
  EXPECT_EQ(table.charCount, 3u);
}

TEST(CmapFormat0, ACutSubtableIsAReadError) {
  qxtest::forEachPrefix(CmapBuilder::format0({{65, 7}}), [](const std::string& cut) {
    CmapFormat0 table;
    EXPECT_EQ(readFrom(cut, readFormat0, table), readFailure("'cmap' table format 0 read error"))
        << cut.size();
  });
}

}  // namespace
}  // namespace QXFontService_NS::cmap
