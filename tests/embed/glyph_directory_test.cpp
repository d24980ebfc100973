#include "embed/glyph_directory.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_lists.h"
#include "embed/true_type_subset.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;

std::string directoryForm(OpenedSfnt& font, const Gids& gids, GlyphStreams& streams) {
  return formOf(
      [&](QXMemStream& out) { return writeGlyphDirectoryFont(font.source, gids, streams, out); });
}

SfntBuilder smallFont() {
  return fontOf({"zero", "", "two", "three"})
      .table("head", "headd")
      .table("cvt", "c")
      .table("maxp", "mm")
      .table("name", "not listed");
}

TEST(GlyphDirectory, WritesTheListedTablesWithAnEmptyGdirInItsPlace) {
  OpenedSfnt font(smallFont(), 1);
  GlyphStreams streams;
  BeBytes expected;
  // Four records; the search fields are those of the five tables that glyf and loca make.
  expected.u32(SfntBuilder::kTrueType).u16(4).u16(64).u16(2).u16(16);
  expected.tag("cvt").u32(0x63000000).u32(76).u32(1);
  expected.tag("gdir").u32(0).u32(0).u32(0);
  expected.tag("head").u32(qxtest::tableChecksum("headd")).u32(80).u32(5);
  expected.tag("maxp").u32(0x6D6D0000).u32(88).u32(2);
  expected.text("c").zeros(3).text("headd").zeros(3).text("mm").zeros(2);
  EXPECT_EQ(directoryForm(font, {3, 2, 1}, streams), expected.str());
}

TEST(GlyphDirectory, HandsOutEachGlyphOnceInOrderAndNoEmptyOne) {
  OpenedSfnt font(smallFont(), 1);
  GlyphStreams streams;
  directoryForm(font, {3, 1, 2, 3, 0xFFFF}, streams);
  EXPECT_EQ(streams.asked, (Gids{0, 2, 3}));
  EXPECT_EQ(bytesIn(*streams.streams.at(0)), "zero");
  EXPECT_EQ(bytesIn(*streams.streams.at(2)), "two");
  EXPECT_EQ(bytesIn(*streams.streams.at(3)), "three");
}

TEST(GlyphDirectory, HandsOutComponents) {
  OpenedSfnt font(fontOf({"", glyphOf(12, 'a'), compositeOf({1})}).table("head", "h"), 1);
  GlyphStreams streams;
  directoryForm(font, {2}, streams);
  EXPECT_EQ(streams.asked, (Gids{1, 2}));
}

TEST(GlyphDirectory, AppendsToWhatAStreamHolds) {
  OpenedSfnt font(smallFont(), 1);
  GlyphStreams streams;
  appendText(*streams.getGlyphStream(2), "before ");
  directoryForm(font, {2}, streams);
  EXPECT_EQ(bytesIn(*streams.streams.at(2)), "before two");
}

TEST(GlyphDirectory, AGlyphWithoutAStreamIsPassedOver) {
  OpenedSfnt font(smallFont(), 1);
  GlyphStreams streams;
  streams.refused = 2;
  EXPECT_NE(directoryForm(font, {2, 3}, streams), "false");
  EXPECT_EQ(streams.asked, (Gids{0, 2, 3}));
  EXPECT_EQ(streams.streams.count(2), 0u);
  EXPECT_EQ(bytesIn(*streams.streams.at(3)), "three");
}

TEST(GlyphDirectory, AnIdPastTheLastGlyphIsNotAskedForThoughPaddingFollows) {
  OpenedSfnt font(fontOf({"zero", "one"}).table("glyf", "zeroone+++").table("head", "h"), 1);
  font.source.glyphCount = 2;
  GlyphStreams streams;
  directoryForm(font, {1, 2, 3}, streams);
  EXPECT_EQ(streams.asked, (Gids{0, 1}));
}

TEST(GlyphDirectory, StandsBehindFpgmAndBeforeHead) {
  SfntBuilder builder = fontOf({"zero"});
  for (const char* tag : {"prep", "maxp", "hmtx", "hhea", "head", "fpgm", "cvt"})
    builder.table(tag, "x");
  OpenedSfnt font(builder, 1);
  GlyphStreams streams;
  const WrittenSfnt sfnt(directoryForm(font, {}, streams));
  EXPECT_EQ(sfnt.tags, (std::vector<std::string>{"cvt ", "fpgm", "gdir", "head", "hhea", "hmtx",
                                                 "maxp", "prep"}));
  EXPECT_EQ(sfnt.bytes.size(), 12u + 8 * 16 + 7 * 4);
  // DejaVu Sans has these tables: 9 with glyf and loca, 8 in the form.
  EXPECT_EQ(sfnt.bytes.substr(4, 8), BeBytes().u16(8).u16(0x80).u16(3).u16(0x10).str());
  for (const auto& [tag, offset] : sfnt.offsets) EXPECT_EQ(offset % 4, 0u) << tag;
}

TEST(GlyphDirectory, IsTheLastRecordWhereNoTableStandsBehindIt) {
  OpenedSfnt font(fontOf({"zero"}).table("cvt", "c"), 1);
  GlyphStreams streams;
  EXPECT_EQ(WrittenSfnt(directoryForm(font, {}, streams)).tags,
            (std::vector<std::string>{"cvt ", "gdir"}));
}

TEST(GlyphDirectory, IsWrittenForAFontWithNoneOfTheTables) {
  OpenedSfnt font(fontOf({"zero"}), 1);
  GlyphStreams streams;
  BeBytes expected;
  expected.u32(SfntBuilder::kTrueType).u16(1).u16(32).u16(1).u16(0);
  expected.tag("gdir").zeros(12);
  EXPECT_EQ(directoryForm(font, {}, streams), expected.str());
}

TEST(GlyphDirectory, NeedsGlyfAndLoca) {
  OpenedSfnt font(SfntBuilder().table("CFF", "c").table("head", "h"));
  GlyphStreams streams;
  EXPECT_EQ(directoryForm(font, {}, streams), "false");
}

// The table count of this form must not be seen by the next one.
TEST(GlyphDirectory, LeavesNoTraceInTheFormsThatFollow) {
  OpenedSfnt font(smallFont(), 1);
  const auto subset = [&] {
    return formOf([&](QXMemStream& out) {
      return writeGlyphSubset(font.source, {2}, kEmbedTables.data(), out);
    });
  };
  const std::string before = subset();
  GlyphStreams streams;
  const std::string form = directoryForm(font, {2}, streams);
  EXPECT_EQ(subset(), before);
  EXPECT_EQ(directoryForm(font, {2}, streams), form);
}

TEST(GlyphDirectory, ACutFontGivesWhatIsThereAndStaysAligned) {
  const std::string whole = smallFont().build();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    OpenedSfnt font(whole, whole.substr(0, size), 1);
    GlyphStreams streams;
    const std::string form = directoryForm(font, {0, 1, 2, 3}, streams);
    ASSERT_NE(form, "false") << size;
    EXPECT_EQ(form.size() % 4, 0u);
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
