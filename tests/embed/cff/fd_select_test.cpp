#include "embed/cff/fd_select.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cff {
namespace {

using qxtest::bytesOf;
using qxtest::CffBuilder;
using Ranges = std::vector<FS_FDRange>;

// An FDSelect at table offset 3, behind a glyph count at offset 1; the table begins at 1.
bool read(const std::string& fdSelect, unsigned glyphCount, Ranges& out) {
  std::istringstream stream("??" + bytesOf({0, static_cast<int>(glyphCount)}) + fdSelect);
  return readFDSelect({&stream, 1, 100}, 3, 1, out);
}

TEST(FDSelect, FormatThreeGivesRanges) {
  Ranges ranges;
  ASSERT_TRUE(read(CffBuilder::fdSelect3({{0, 2}, {5, 0}, {6, 1}}, 9), 9, ranges));
  ASSERT_EQ(ranges.size(), 3u);
  EXPECT_EQ(ranges[0].first, 0);
  EXPECT_EQ(ranges[0].last, 4);
  EXPECT_EQ(ranges[0].fd, 2);
  EXPECT_EQ(ranges[2].first, 6);
  EXPECT_EQ(ranges[2].last, 8);
  const std::vector<int> expected = {2, 2, 2, 2, 2, 0, 1, 1, 1, 0xFF};
  for (unsigned short gid = 0; gid < 10; ++gid) EXPECT_EQ(getFDIndex(ranges, gid), expected[gid]);
  EXPECT_EQ(getFDIndex(ranges, 9, 7), 7);
}

TEST(FDSelect, FormatThreeNeedsARange) {
  Ranges ranges;
  EXPECT_FALSE(read(bytesOf({3, 0, 0, 0, 0}), 9, ranges));
}

TEST(FDSelect, NextFirstOfZeroEndsAt65535) {
  Ranges ranges;
  ASSERT_TRUE(read(CffBuilder::fdSelect3({{0, 1}}, 0), 9, ranges));
  EXPECT_EQ(ranges.at(0).last, 65535);
}

// Required: hosts see the last glyph of such a font without a Font DICT.
TEST(FDSelect, FormatZeroLeavesTheLastGlyphWithoutAFontDict) {
  Ranges ranges;
  ASSERT_TRUE(read(CffBuilder::fdSelect0({1, 0, 2, 1}), 4, ranges));
  ASSERT_EQ(ranges.size(), 3u);
  EXPECT_EQ(getFDIndex(ranges, 0), 1);
  EXPECT_EQ(getFDIndex(ranges, 2), 2);
  EXPECT_EQ(getFDIndex(ranges, 3), 0xFF);
}

TEST(FDSelect, FormatZeroOfNoOrOneGlyphIsEmpty) {
  for (unsigned count : {0u, 1u}) {
    Ranges ranges;
    EXPECT_TRUE(read(bytesOf({0}), count, ranges));
    EXPECT_TRUE(ranges.empty());
  }
}

TEST(FDSelect, RefusesOtherFormatsAndMissingOffsets) {
  Ranges ranges;
  for (int format : {1, 2, 4, 255})
    EXPECT_FALSE(read(bytesOf({format, 0, 1, 0, 0, 0, 0, 9, 0, 0}), 2, ranges)) << format;
  std::istringstream stream(std::string(20, '\0'));
  EXPECT_FALSE(readFDSelect({&stream, 0, 20}, 0, 5, ranges));
  EXPECT_FALSE(readFDSelect({&stream, 0, 20}, -3, 5, ranges));
  EXPECT_FALSE(readFDSelect({&stream, 0, 20}, 5, 0, ranges));
  EXPECT_FALSE(readFDSelect({&stream, 0, 20}, 5, 100, ranges));
  EXPECT_FALSE(readFDSelect({&stream, 0, 20}, 100, 5, ranges));
  EXPECT_FALSE(readFDSelect({}, 5, 5, ranges));
}

TEST(FDSelect, EveryCutIsRefused) {
  for (const std::string& whole :
       {CffBuilder::fdSelect3({{0, 2}, {5, 0}}, 9), CffBuilder::fdSelect0({1, 2, 3})}) {
    qxtest::forEachPrefix(whole, [](const std::string& bytes) {
      Ranges ranges;
      EXPECT_FALSE(read(bytes, 4, ranges));
    });
  }
}

}  // namespace
}  // namespace QXFontService_NS::cff
