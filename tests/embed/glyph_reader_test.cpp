#include "embed/glyph_reader.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_selection.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;

/// Counts the reads that ask for bytes.
class CountingBuf : public std::stringbuf {
 public:
  explicit CountingBuf(const std::string& text) : std::stringbuf(text) {}
  int reads = 0;

 protected:
  std::streamsize xsgetn(char* out, std::streamsize count) override {
    ++reads;
    return std::stringbuf::xsgetn(out, count);
  }
};

struct Reading {
  explicit Reading(const SfntBuilder& builder) : Reading(builder.build(), builder.build()) {}
  Reading(const std::string& directory, const std::string& bytes)
      : font(directory, bytes, 1), buffer(bytes), stream(&buffer) {
    SubsetTables tables;
    EXPECT_TRUE(selectTables(font.source, nullptr, tables));
    locations.emplace(font.source);
    reader.emplace(stream, *locations);
  }
  bool read(const Gids& gids) {
    glyphs.clear();
    for (const std::uint16_t gid : gids) glyphs.push_back({gid, 0, {}});
    return reader->read(glyphs);
  }
  [[nodiscard]] std::string bytes(std::size_t i) const { return textOf(glyphs[i].bytes); }

  OpenedSfnt font;
  CountingBuf buffer;
  std::istream stream;
  std::optional<GlyphLocations> locations;
  std::optional<GlyphReader> reader;
  std::vector<KeptGlyph> glyphs;
};

TEST(GlyphReader, GivesTheBytesOfEachGlyph) {
  Reading reading(fontOf({"zero", "", "two", "three"}));
  ASSERT_TRUE(reading.read({0, 1, 3, 9}));
  EXPECT_EQ(reading.bytes(0), "zero");
  EXPECT_EQ(reading.bytes(1), "");
  EXPECT_EQ(reading.bytes(2), "three");
  EXPECT_EQ(reading.bytes(3), "");
  EXPECT_EQ(reading.glyphs[2].length, 5u);
  ASSERT_TRUE(reading.read({2}));  // the bytes that came before live on
  EXPECT_EQ(reading.bytes(0), "two");
}

TEST(GlyphReader, GlyphsThatStandTogetherAreReadTogether) {
  const std::string wide(1024, '.');
  Reading near(fontOf({"a", "b", wide, "c"}));
  ASSERT_TRUE(near.read({0, 1, 3}));
  EXPECT_EQ(near.buffer.reads, 1);
  EXPECT_EQ(near.bytes(2), "c");
  Reading far(fontOf({"a", "b", wide + ".", "c"}));
  ASSERT_TRUE(far.read({0, 1, 3}));
  EXPECT_EQ(far.buffer.reads, 2);
  EXPECT_EQ(far.bytes(2), "c");
}

TEST(GlyphReader, NothingToReadIsNoRead) {
  Reading reading(fontOf({"", "a"}));
  ASSERT_TRUE(reading.read({}));
  ASSERT_TRUE(reading.read({0}));
  EXPECT_EQ(reading.buffer.reads, 0);
}

TEST(GlyphReader, OffsetsThatGoBackAreReadWhereTheyAre) {
  const std::string loca = BeBytes().u32(4).u32(8).u32(2).u32(6).str();
  Reading reading(SfntBuilder().table("glyf", "0123456789").table("loca", loca));
  ASSERT_TRUE(reading.read({0, 1, 2}));
  EXPECT_EQ(reading.bytes(0), "4567");
  EXPECT_EQ(reading.bytes(1), "");
  EXPECT_EQ(reading.bytes(2), "2345");
}

TEST(GlyphReader, ACutFontGivesTheBytesThatAreThere) {
  const SfntBuilder builder = fontOf({"zero", "one", "two"});
  const std::string whole = builder.build();
  Reading reading(whole, whole.substr(0, builder.offsetOf("glyf") + 5));
  ASSERT_TRUE(reading.read({0, 1, 2}));
  EXPECT_EQ(reading.bytes(0), "zero");
  EXPECT_EQ(reading.bytes(1), "o");
  EXPECT_EQ(reading.glyphs[1].length, 3u);
  EXPECT_EQ(reading.bytes(2), "");
  EXPECT_EQ(reading.glyphs[2].length, 3u);
}

TEST(GlyphReader, AGlyphOfFourGigabytesIsCopiedAsFarAsTheStreamGoes) {
  const std::string loca = BeBytes().u32(0).u32(0xFFFFFFFF).str();
  Reading reading(SfntBuilder().table("loca", loca).table("glyf", "abc"));
  ASSERT_TRUE(reading.read({0}));
  EXPECT_EQ(reading.glyphs[0].length, 0xFFFFFFFFu);
  EXPECT_EQ(reading.bytes(0), std::string("abc\0", 4));  // the table's padding too
}

// Offsets that rise and fall make any number of glyphs of the same bytes.
TEST(GlyphReader, OverlappingGlyphsMayNotPassTheLengthOfTheStream) {
  BeBytes loca;
  for (int i = 0; i < 40; ++i) loca.u32(0).u32(50);
  const SfntBuilder builder =
      SfntBuilder().table("loca", loca.str()).table("glyf", std::string(50, 'g'));
  const std::size_t fits = builder.build().size() / 50;
  Gids gids;
  for (std::size_t i = 0; i < fits; ++i) gids.push_back(static_cast<std::uint16_t>(2 * i));
  Reading reading(builder);
  EXPECT_TRUE(reading.read(gids));
  EXPECT_FALSE(reading.read({0}));
  gids.push_back(static_cast<std::uint16_t>(2 * fits));
  EXPECT_FALSE(Reading(builder).read(gids));
}

}  // namespace
}  // namespace QXFontService_NS::embed
