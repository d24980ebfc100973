#include "embed/glyph_locations.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;

/// A font with this `loca` and a `glyf` of 100 bytes.
struct Located {
  Located(const std::string& loca, int format, unsigned glyphCount = 0)
      : font(SfntBuilder().table("glyf", std::string(100, 'g')).table("loca", loca), format) {
    SubsetTables tables;
    EXPECT_TRUE(selectTables(font.source, nullptr, tables));
    font.source.glyphCount = glyphCount;
  }
  [[nodiscard]] GlyphLocations locations() const { return GlyphLocations(font.source); }

  OpenedSfnt font;
};

TEST(GlyphLocations, AShortLocaCountsInWords) {
  const Located font(BeBytes().u16(0).u16(10).u16(0xFFFF).str(), 0);
  const GlyphLocations locations = font.locations();
  EXPECT_FALSE(locations.areLong());
  EXPECT_EQ(locations.entryCount(), 3u);
  EXPECT_EQ(locations.offset(1), 20u);
  EXPECT_EQ(locations.offset(2), 131070u);
}

TEST(GlyphLocations, ALongLocaCountsInBytes) {
  const Located font(BeBytes().u32(0).u32(21).u32(0xFFFFFFFF).str(), 1);
  const GlyphLocations locations = font.locations();
  EXPECT_TRUE(locations.areLong());
  EXPECT_EQ(locations.entryCount(), 3u);
  EXPECT_EQ(locations.offset(1), 21u);
  EXPECT_EQ(locations.offset(2), 0xFFFFFFFFu);
}

TEST(GlyphLocations, OneAloneIsLong) {
  for (const int format : {0, 2, -1, 256}) {
    const Located font(BeBytes().u16(0).u16(10).str(), format);
    EXPECT_FALSE(font.locations().areLong()) << format;
  }
}

TEST(GlyphLocations, BehindTheLastEntryIsTheLengthOfGlyf) {
  const Located font(BeBytes().u16(0).u16(10).str(), 0);
  EXPECT_EQ(font.locations().offset(2), 100u);
  EXPECT_EQ(font.locations().offset(0x10000), 100u);
}

TEST(GlyphLocations, AnEntryThatIsCutIsBehindTheEnd) {
  const Located shortOffsets(BeBytes().u16(0).u16(10).u8(0).str(), 0);
  EXPECT_EQ(shortOffsets.locations().offset(2), 100u);
  EXPECT_EQ(shortOffsets.locations().entryCount(), 2u);
  EXPECT_EQ(shortOffsets.locations().tableSize(), 5u);
  const Located longOffsets(BeBytes().u32(0).u24(0).str(), 1);
  EXPECT_EQ(longOffsets.locations().offset(1), 100u);
}

TEST(GlyphLocations, ALocaOneEntryShortEndsTheLastGlyphAtTheEndOfGlyf) {
  const Located font(BeBytes().u16(0).u16(10).str(), 0, 2);
  EXPECT_EQ(font.locations().extent(1).length, 80u);
}

TEST(GlyphLocations, AFallingEndOrAnEndOfZeroIsAnEmptyGlyph) {
  const Located font(BeBytes().u16(5).u16(0).u16(20).u16(10).str(), 0);
  EXPECT_EQ(font.locations().extent(0).length, 0u);  // ends at 0
  EXPECT_EQ(font.locations().extent(1).length, 40u);
  EXPECT_EQ(font.locations().extent(2).length, 0u);  // falls
  EXPECT_EQ(font.locations().extent(3).start, 20u);
  EXPECT_EQ(font.locations().extent(3).length, 80u);  // up to the end of glyf
}

// Otherwise padding behind the last glyph would be a glyph.
TEST(GlyphLocations, AnIdThatTheFontDoesNotHaveIsEmpty) {
  const Located font(BeBytes().u16(0).u16(10).u16(20).str(), 0, 2);
  EXPECT_EQ(font.locations().extent(1).length, 20u);
  EXPECT_EQ(font.locations().extent(2).length, 0u);
  EXPECT_EQ(font.locations().extent(65534).length, 0u);
  const Located unknown(BeBytes().u16(0).u16(10).u16(20).str(), 0, 0);
  EXPECT_EQ(unknown.locations().extent(2).length, 60u);
}

}  // namespace
}  // namespace QXFontService_NS::embed
