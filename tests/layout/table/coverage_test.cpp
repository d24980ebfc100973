#include "layout/table/coverage.h"

#include <gtest/gtest.h>

#include "layout/table/graph_reader.h"
#include "layout/test_font.h"
#include "support/coverage_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::coverage;
using qxtest::coverageOfRanges;

const qxtest::TestFont kFont;

CoveragePtr read(const std::string& bytes, unsigned offset = 2) {
  const std::string table = "\xEE\xEE" + bytes;
  GraphReader reader(kFont, qxtest::viewOf(table));
  return readCoverage(reader, 0, offset);
}

TEST(Coverage, FindsGlyphsOfAList) {
  const CoveragePtr covered = read(coverage({3, 5, 9}));
  EXPECT_EQ(covered->coverageIndex(3), 0);
  EXPECT_EQ(covered->coverageIndex(5), 1);
  EXPECT_EQ(covered->coverageIndex(9), 2);
  for (const unsigned short glyph : qxtest::GlyphIds{0, 2, 4, 6, 10, 0xFFFF})
    EXPECT_EQ(covered->coverageIndex(glyph), -1) << glyph;
}

TEST(Coverage, FindsGlyphsOfRanges) {
  const CoveragePtr covered = read(coverageOfRanges({{3, 5, 0}, {7, 7, 3}, {9, 0xFFFF, 100}}));
  EXPECT_EQ(covered->coverageIndex(3), 0);
  EXPECT_EQ(covered->coverageIndex(5), 2);
  EXPECT_EQ(covered->coverageIndex(7), 3);
  EXPECT_EQ(covered->coverageIndex(9), 100);
  EXPECT_EQ(covered->coverageIndex(0xFFFF), 0xFFFF - 9 + 100);
  for (const unsigned short glyph : qxtest::GlyphIds{0, 2, 6, 8})
    EXPECT_EQ(covered->coverageIndex(glyph), -1);
}

TEST(Coverage, OfNothingCoversNothing) {
  EXPECT_EQ(read(coverage({}))->coverageIndex(0), -1);
  EXPECT_EQ(read(coverageOfRanges({}))->coverageIndex(0), -1);
  EXPECT_EQ(indexIn(nullptr, 0), -1);
}

TEST(Coverage, IsNullForNoOffsetAndUnknownFormats) {
  EXPECT_EQ(read(coverage({3}), 0), nullptr);
  for (const char format : {'\0', '\3', '\xFF'}) {
    std::string bytes = coverage({3});
    bytes[1] = format;
    EXPECT_EQ(read(bytes), nullptr);
  }
}

// [5, 3, 9, 1]: the probes go 9 (index 2), then 3 (index 1), then 5 (index 0).
TEST(Coverage, HalvingDecidesWhatAnUnsortedListCovers) {
  const CoveragePtr covered = read(coverage({5, 3, 9, 1}));
  EXPECT_EQ(covered->coverageIndex(9), 2);
  EXPECT_EQ(covered->coverageIndex(3), 1);
  EXPECT_EQ(covered->coverageIndex(5), -1);
  EXPECT_EQ(covered->coverageIndex(1), -1);
}

TEST(Coverage, FirstRangeMetByHalvingDecides) {
  const CoveragePtr covered = read(coverageOfRanges({{1, 9, 0}, {3, 7, 50}, {9, 5, 60}}));
  EXPECT_EQ(covered->coverageIndex(4), 51);  // the middle one, not the first
  EXPECT_EQ(covered->coverageIndex(2), 1);
  EXPECT_EQ(covered->coverageIndex(9), -1);
}

TEST(Coverage, CountIsClippedToWhatIsThere) {
  std::string list = coverage({3, 5});
  list[3] = '\x7F';
  EXPECT_EQ(read(list)->coverageIndex(5), 1);
  std::string ranges = coverageOfRanges({{3, 5, 0}});
  ranges[3] = '\x7F';
  EXPECT_EQ(read(ranges)->coverageIndex(0), -1);
  EXPECT_EQ(read(ranges)->coverageIndex(4), 1);
}

TEST(Coverage, IsSharedByPlace) {
  const std::string table = "\xEE\xEE" + coverage({3});
  GraphReader reader(kFont, qxtest::viewOf(table));
  EXPECT_EQ(readCoverage(reader, 0, 2), readCoverage(reader, 1, 1));
}

TEST(Coverage, SetHoldsWhatIsCovered) {
  for (const std::string& bytes :
       {coverage({5, 3, 9, 1, 64}),
        coverageOfRanges({{3, 70, 0}, {0xFFF0, 0xFFFF, 5}, {9, 5, 0}})}) {
    const CoveragePtr covered = read(bytes);
    GlyphSet set;
    covered->addTo(set);
    for (unsigned glyph = 0; glyph <= 0xFFFF; ++glyph) {
      const auto id = static_cast<unsigned short>(glyph);
      if (covered->coverageIndex(id) >= 0) {
        EXPECT_TRUE(set.contains(id)) << glyph;
      }
    }
    EXPECT_FALSE(set.contains(200));
  }
}

TEST(Coverage, SurvivesDamage) {
  for (const std::string& bytes : {coverage({3, 5}), coverageOfRanges({{3, 5, 0}, {7, 9, 3}})})
    qxtest::forEachDamage(bytes, [](const std::string& damaged) {
      const CoveragePtr covered = read(damaged);
      GlyphSet set;
      if (covered) covered->addTo(set);
      for (const unsigned short glyph : qxtest::GlyphIds{0, 3, 4, 0xFFFF})
        EXPECT_TRUE(indexIn(covered, glyph) == -1 || set.contains(glyph));
    });
}

}  // namespace
}  // namespace QXFontService_NS::layout
