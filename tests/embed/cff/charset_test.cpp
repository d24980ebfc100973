#include "embed/cff/charset.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/byte_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::cff {
namespace {

using qxtest::bytesOf;
using qxtest::CffBuilder;
using Sids = std::vector<unsigned short>;

bool read(const std::string& bytes, unsigned glyphCount, Charset& out) {
  std::istringstream stream(bytes);
  return readCharset(stream, 0, glyphCount, out);
}

void expectRange(const FS_CFFRange& range, int first, int last, int mappedFirst) {
  EXPECT_EQ(range.first, first);
  EXPECT_EQ(range.last, last);
  EXPECT_EQ(range.mappedFirst, mappedFirst);
}

TEST(CffCharset, FormatZeroListsSids) {
  Charset charset;
  ASSERT_TRUE(read(CffBuilder::charsetFormat0({34, 391, 1, 7}), 4, charset));
  EXPECT_EQ(charset.sids, (Sids{34, 391, 1}));
  EXPECT_TRUE(charset.sidRanges.empty());
}

TEST(CffCharset, RangesAreKeptBothWaysAndSorted) {
  for (int format : {1, 2}) {
    Charset charset;
    ASSERT_TRUE(read(CffBuilder::charsetRanges(format, {{100, 2}, {50, 0}, {60, 4}}), 10, charset));
    ASSERT_EQ(charset.sidRanges.size(), 3u);
    expectRange(charset.sidRanges[0], 50, 50, 4);
    expectRange(charset.sidRanges[1], 60, 64, 5);
    expectRange(charset.sidRanges[2], 100, 102, 1);
    expectRange(charset.gidRanges[0], 1, 3, 100);
    expectRange(charset.gidRanges[1], 4, 4, 50);
    expectRange(charset.gidRanges[2], 5, 9, 60);
    EXPECT_TRUE(charset.sids.empty());
  }
}

TEST(CffCharset, FormatTwoTakesWideCounts) {
  Charset charset;
  ASSERT_TRUE(read(CffBuilder::charsetRanges(2, {{1, 0x1234}}), 0x1236, charset));
  ASSERT_EQ(charset.gidRanges.size(), 1u);
  expectRange(charset.gidRanges[0], 1, 0x1235, 1);
}

TEST(CffCharset, StopsWhenTheGlyphsAreCovered) {
  Charset charset;
  ASSERT_TRUE(read(CffBuilder::charsetRanges(1, {{10, 3}}) + bytesOf({99}), 5, charset));
  EXPECT_EQ(charset.sidRanges.size(), 1u);
  Charset over;  // the last range may cover more than there is
  ASSERT_TRUE(read(CffBuilder::charsetRanges(1, {{10, 200}}), 5, over));
  expectRange(over.gidRanges.at(0), 1, 201, 10);
}

TEST(CffCharset, CountsZeroAndOneReadNothingButTheFormat) {
  for (unsigned count : {0u, 1u}) {
    for (int format : {0, 1, 2}) {
      Charset charset;
      EXPECT_TRUE(read(bytesOf({format}), count, charset));
      EXPECT_TRUE(charset.sids.empty());
      EXPECT_TRUE(charset.sidRanges.empty());
    }
    Charset charset;
    EXPECT_FALSE(read("", count, charset));
  }
}

TEST(CffCharset, RefusesOtherFormats) {
  for (int format : {3, 4, 0x80, 255}) {
    Charset charset;
    EXPECT_FALSE(read(bytesOf({format, 0, 1, 0, 2, 0, 3}), 3, charset)) << format;
  }
}

TEST(CffCharset, RangesPast65535AreCutOnlyWhenStored) {
  Charset charset;
  ASSERT_TRUE(read(CffBuilder::charsetRanges(2, {{0xFFFF, 0xFFFF}, {1, 0}}), 0xFFFF, charset));
  ASSERT_EQ(charset.sidRanges.size(), 1u);
  expectRange(charset.sidRanges[0], 0xFFFF, 0xFFFE, 1);
  expectRange(charset.gidRanges[0], 1, 0, 0xFFFF);
}

TEST(CffCharset, EveryCutIsRefused) {
  const std::vector<std::string> charsets = {CffBuilder::charsetFormat0({1, 2, 3}),
                                             CffBuilder::charsetRanges(1, {{1, 1}, {7, 0}}),
                                             CffBuilder::charsetRanges(2, {{1, 1}, {7, 0}})};
  for (const std::string& whole : charsets) {
    qxtest::forEachPrefix(whole, [](const std::string& bytes) {
      Charset charset;
      EXPECT_FALSE(read(bytes, 4, charset));
    });
  }
}

TEST(CffCharset, ReadsMoreThanOneBlock) {
  std::vector<int> sids;
  for (int i = 0; i < 1000; ++i) sids.push_back(i * 7 % 65536);
  Charset charset;
  ASSERT_TRUE(read(CffBuilder::charsetFormat0(sids), 1001, charset));
  ASSERT_EQ(charset.sids.size(), 1000u);
  for (std::size_t i = 0; i < 1000; ++i) EXPECT_EQ(charset.sids[i], sids[i]);
}

TEST(CffRanges, AreFoundByHalving) {
  const std::vector<FS_CFFRange> ranges = {{2, 4, 10}, {6, 6, 20}, {10, 20, 30}};
  for (int key : {0, 1, 5, 7, 9, 21, 65535})
    EXPECT_EQ(findRange(ranges, static_cast<unsigned short>(key)), nullptr) << key;
  EXPECT_EQ(findRange(ranges, 2), &ranges[0]);
  EXPECT_EQ(findRange(ranges, 4), &ranges[0]);
  EXPECT_EQ(findRange(ranges, 6), &ranges[1]);
  EXPECT_EQ(findRange(ranges, 20), &ranges[2]);
  EXPECT_EQ(findRange(std::vector<FS_CFFRange>{}, 1), nullptr);
}

}  // namespace
}  // namespace QXFontService_NS::cff
