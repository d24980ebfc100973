#include "embed/true_type_subset.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_lists.h"
#include "support/sample_font.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;
using Tags = std::vector<std::string>;

constexpr unsigned kSampleGlyphs = 4;

struct Sample : OpenedSfnt {
  explicit Sample(const SfntBuilder& builder = qxtest::sampleFont()) : OpenedSfnt(builder) {
    source.glyphCount = kSampleGlyphs;
  }
  std::string subset(const Gids& gids, const std::uint32_t* tags) {
    return formOf([&](QXMemStream& out) { return writeGlyphSubset(source, gids, tags, out); });
  }
  std::string withCmap(const Gids& gids) {
    return formOf([&](QXMemStream& out) { return writeGlyphSubsetWithCmap(source, gids, out); });
  }
  std::string svg(const Gids& gids) {
    return formOf([&](QXMemStream& out) { return writeSvgFont(source, gids, out); });
  }
  std::string whole(const std::uint32_t* tags) {
    return formOf([&](QXMemStream& out) { return writeWholeTables(source, tags, out); });
  }
};

SfntBuilder cffFont() {
  return SfntBuilder().table("CFF", "outlines").table("cmap", "m").table("head", "h");
}

TEST(TrueTypeSubset, TheGlyphSubsetByteForByte) {
  SfntBuilder builder = fontOf({"zero", "one", "", "three"});
  builder.table("maxp", "mm").table("head", "h").table("name", "not listed");
  OpenedSfnt font(builder, 1);
  const std::string subset = formOf([&](QXMemStream& out) {
    return writeGlyphSubset(font.source, {3}, kEmbedTables.data(), out);
  });
  const std::string glyf = "zerothree";
  const std::string loca = BeBytes().u32(0).u32(4).u32(4).u32(4).u32(9).str();
  BeBytes expected;
  expected.u32(SfntBuilder::kTrueType).u16(4).u16(64).u16(2).u16(0);
  expected.tag("glyf").u32(qxtest::tableChecksum(glyf)).u32(76).u32(9);
  expected.tag("head").u32(0x68000000).u32(88).u32(1);
  expected.tag("loca").u32(qxtest::tableChecksum(loca)).u32(92).u32(20);
  expected.tag("maxp").u32(0x6D6D0000).u32(112).u32(2);
  expected.text(glyf).zeros(3).text("h").zeros(3).text(loca).text("mm");
  EXPECT_EQ(subset, expected.str());
}

TEST(TrueTypeSubset, TheListOfTheFormDecidesWhichTablesGoAlong) {
  Sample font;
  EXPECT_EQ(WrittenSfnt(font.subset({2}, kEmbedTables.data())).tags,
            (Tags{"OS/2", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "post"}));
  EXPECT_EQ(WrittenSfnt(font.withCmap({2})).tags,
            (Tags{"OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "post"}));
  EXPECT_EQ(WrittenSfnt(font.subset({2}, nullptr)).tags,
            (Tags{"OS/2", "cmap", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "name", "post"}));
  const std::uint32_t list[] = {tableTag("name"), 0};
  EXPECT_EQ(WrittenSfnt(font.subset({2}, list)).tags, (Tags{"glyf", "loca", "name"}));
}

TEST(TrueTypeSubset, AllTablesButGlyfAndLocaStayAsTheyWere) {
  const SfntBuilder builder = qxtest::sampleFont();
  const WrittenSfnt source(builder.build());
  Sample font;
  const WrittenSfnt subset(font.subset({2}, nullptr));
  for (const std::string& tag : source.tags) {
    const bool rebuilt = tag == "glyf" || tag == "loca";
    EXPECT_EQ(subset.bodies.at(tag) != source.bodies.at(tag), rebuilt) << tag;
    EXPECT_EQ(subset.checkSums.at(tag) != source.checkSums.at(tag), rebuilt) << tag;
  }
  EXPECT_EQ(subset.bodies.at("loca").size(), source.bodies.at("loca").size());
}

TEST(TrueTypeSubset, AllGlyphsAskedForGiveTheSourceBack) {
  const WrittenSfnt source(qxtest::sampleFont().build());
  Sample font;
  const WrittenSfnt subset(font.subset({0, 1, 2, 3}, nullptr));
  EXPECT_EQ(subset.bodies.at("glyf"), source.bodies.at("glyf"));
  EXPECT_EQ(subset.bodies.at("loca"), source.bodies.at("loca"));
}

TEST(TrueTypeSubset, NothingAskedForIsAFontOfNotdef) {
  Sample font;
  const WrittenSfnt subset(font.subset({}, kEmbedTables.data()));
  const std::string glyf = qxtest::GlyfBuilder().square(500).glyf();
  EXPECT_EQ(subset.bodies.at("glyf"), glyf);
}

TEST(TrueTypeSubset, IsTheSameEachTime) {
  Sample font;
  const std::string first = font.subset({3}, kEmbedTables.data());
  const std::string all = font.subset({3}, nullptr);
  EXPECT_NE(first, all);
  EXPECT_EQ(font.subset({3}, kEmbedTables.data()), first);
  EXPECT_EQ(font.subset({3}, nullptr), all);
  Sample fresh;
  EXPECT_EQ(fresh.subset({3}, nullptr), all);
}

TEST(TrueTypeSubset, AFontWithoutOutlinesIsRefused) {
  Sample font(SfntBuilder().table("head", "h").table("glyf", "g"));
  EXPECT_EQ(font.subset({}, nullptr), "false");
  EXPECT_EQ(font.withCmap({}), "false");
  EXPECT_EQ(font.svg({}), "false");
  EXPECT_EQ(font.whole(nullptr), "false");
}

TEST(TrueTypeSubset, CffOutlinesGoOutWholeWithTheListedTables) {
  Sample font(cffFont());
  const WrittenSfnt listed(font.subset({1}, kEmbedTables.data()));
  EXPECT_EQ(listed.tags, (Tags{"CFF ", "head"}));
  EXPECT_EQ(listed.bodies.at("CFF "), "outlines");
  EXPECT_EQ(WrittenSfnt(font.subset({1}, nullptr)).tags, (Tags{"CFF ", "cmap", "head"}));
}

TEST(TrueTypeSubset, WithCmapNeedsGlyfAndLoca) {
  Sample font(cffFont());
  EXPECT_EQ(font.withCmap({1}), "false");
}

TEST(TrueTypeSubset, SvgIsTheSubsetOfAllTables) {
  Sample font;
  EXPECT_EQ(font.svg({2}), font.subset({2}, nullptr));
}

TEST(TrueTypeSubset, SvgOfCffIsTheSourceByteForByte) {
  SfntBuilder both = qxtest::sampleFont().table("CFF", "c");
  Sample font(both);
  font.stream.seekg(7);
  EXPECT_EQ(font.svg({2}), both.build());
  EXPECT_TRUE(font.image.loca().empty());  // no table was selected
}

TEST(TrueTypeSubset, WholeTablesKeepAllGlyphs) {
  const WrittenSfnt source(qxtest::sampleFont().build());
  Sample font;
  const WrittenSfnt all(font.whole(nullptr));
  EXPECT_EQ(all.bodies, source.bodies);
  EXPECT_EQ(all.checkSums, source.checkSums);
  EXPECT_EQ(WrittenSfnt(font.whole(kPostScriptTables.data())).tags,
            (Tags{"glyf", "head", "hhea", "hmtx", "loca", "maxp"}));
}

// The offsets of a member's records count from the start of its collection.
TEST(TrueTypeSubset, AMemberOfACollectionIsReadByItsRecords) {
  constexpr std::uint32_t kBase = 40;
  const std::string member = qxtest::sampleFont().build(kBase);
  OpenedSfnt font(member, std::string(kBase, '?') + member);
  font.source.glyphCount = kSampleGlyphs;
  // Without head, whose adjustment tells where the font stood.
  const std::uint32_t list[] = {tableTag("cmap"), tableTag("hmtx"), tableTag("name"), 0};
  const std::string subset =
      formOf([&](QXMemStream& out) { return writeGlyphSubset(font.source, {2}, list, out); });
  Sample alone;
  EXPECT_EQ(subset, alone.subset({2}, list));
}

TEST(TrueTypeSubset, AStreamIsHandedOver) {
  QXMemStream out(nullptr, 8192, false, true);
  std::istringstream borrowed("font");
  borrowed.seekg(3);
  EXPECT_TRUE(handOverStream(FontStream(&borrowed), out));
  EXPECT_EQ(bytesIn(out), "font");
  EXPECT_TRUE(handOverStream(FontStream(std::make_unique<std::istringstream>("owned")), out));
  EXPECT_EQ(bytesIn(out), "owned");
  std::istringstream empty;
  EXPECT_FALSE(handOverStream(FontStream(&empty), out));
  EXPECT_FALSE(handOverStream(FontStream(), out));
}

/// Every form of a font that may be damaged anywhere.
void writeEveryForm(OpenedSfnt& font) {
  for (const int format : {0, 1}) {
    font.source.indexToLocFormat = format;
    for (const unsigned glyphs : {0u, kSampleGlyphs}) {
      font.source.glyphCount = glyphs;
      QXMemStream out(nullptr, 8192, false, true);
      static_cast<void>(writeGlyphSubset(font.source, {3, 900}, nullptr, out));
      EXPECT_LT(out.length(), std::size_t{1} << 22);
    }
  }
}

TEST(TrueTypeSubset, AFontThatIsCutAnywhereIsSurvived) {
  const std::string whole = qxtest::sampleFont().build();
  qxtest::forEachPrefix(whole, [&](const std::string& bytes) {
    OpenedSfnt font(whole, bytes);
    writeEveryForm(font);
  });
}

TEST(TrueTypeSubset, ADirectoryThatIsDamagedAnywhereIsSurvived) {
  const std::string whole = qxtest::sampleFont().build();
  qxtest::forEachDamage(whole.substr(0, 12 + 10 * 16), [&](const std::string& directory) {
    OpenedSfnt font(directory, whole);
    writeEveryForm(font);
  });
}

TEST(TrueTypeSubset, LocaAndGlyfThatAreDamagedAnywhereAreSurvived) {
  const SfntBuilder sample = qxtest::sampleFont();
  for (const char* tag : {"loca", "glyf"}) {
    qxtest::forEachDamage(sample.bytesOf(tag), [&](const std::string& bytes) {
      SfntBuilder damaged = sample;
      OpenedSfnt font(damaged.table(tag, bytes));
      writeEveryForm(font);
    });
  }
}

}  // namespace
}  // namespace QXFontService_NS::embed
