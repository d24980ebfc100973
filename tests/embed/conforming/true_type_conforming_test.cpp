#include "embed/conforming/true_type_conforming.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "support/sample_font.h"
#include "support/truncation.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;
using Tags = std::vector<std::string>;

std::string conforming(OpenedSfnt& font, const Gids& gids) {
  return formOf([&](QXMemStream& out) { return writeConformingTrueType(font.source, gids, out); });
}

std::string conforming(const SfntBuilder& builder, const Gids& gids, int format, unsigned count) {
  OpenedSfnt font(builder, format);
  font.source.glyphCount = count;
  return conforming(font, gids);
}

SfntBuilder withHead(SfntBuilder builder) {
  return builder.table("head", std::string(54, 'h'));
}

TEST(TrueTypeConforming, GlyphsOfALongLocaStandAtMultiplesOfFour) {
  const WrittenSfnt font(
      conforming(withHead(fontOf({"zero", "one", "twenty", "three"})), {1, 3}, 1, 4));
  EXPECT_EQ(font.bodies.at("glyf"), std::string("zeroone\0three\0\0\0", 16));
  EXPECT_EQ(font.bodies.at("loca"), BeBytes().u32(0).u32(4).u32(8).u32(8).u32(16).str());
}

TEST(TrueTypeConforming, GlyphsOfAShortLocaStandAtMultiplesOfTwo) {
  // One entry short: the last glyph ends with the table, at an odd byte.
  SfntBuilder builder = withHead(SfntBuilder());
  builder.table("loca", BeBytes().u16(0).u16(1).str()).table("glyf", "aabbb");
  const WrittenSfnt font(conforming(builder, {1}, 0, 2));
  EXPECT_EQ(font.bodies.at("glyf"), std::string("aabbb\0", 6));
  EXPECT_EQ(font.bodies.at("loca"), BeBytes().u16(0).u16(1).u16(3).str());
}

TEST(TrueTypeConforming, AllSumsAreRight) {
  const std::string bytes = conforming(qxtest::sampleFont(), {3}, 0, 4);
  EXPECT_EQ(qxtest::tableChecksum(bytes), 0xB1B0AFBAu);
  const WrittenSfnt font(bytes);
  for (const std::string& tag : font.tags) {
    std::string body = font.bodies.at(tag);
    if (tag == "head") body.replace(8, 4, 4, '\0');
    EXPECT_EQ(font.checkSums.at(tag), qxtest::tableChecksum(body)) << tag;
    EXPECT_EQ(font.offsets.at(tag) % 4, 0u) << tag;
  }
  EXPECT_EQ(bytes.size() % 4, 0u);
}

TEST(TrueTypeConforming, WithAllGlyphsItIsTheSource) {
  const std::string source = qxtest::sampleFont().build();
  EXPECT_EQ(conforming(qxtest::sampleFont(), {1, 2, 3}, 0, 4), source);
}

TEST(TrueTypeConforming, LeavesTheSignatureOut) {
  SfntBuilder builder = withHead(fontOf({"zero"}));
  builder.table("DSIG", "signed").table("kern", "k");
  EXPECT_EQ(WrittenSfnt(conforming(builder, {}, 1, 1)).tags,
            (Tags{"glyf", "head", "kern", "loca"}));
}

TEST(TrueTypeConforming, AnEmptyGlyfIsOneByte) {
  const WrittenSfnt font(conforming(withHead(fontOf({"", "one"})), {}, 1, 2));
  EXPECT_EQ(font.bodies.at("glyf"), std::string(1, '\0'));
  EXPECT_EQ(font.bodies.at("loca"), std::string(12, '\0'));
}

TEST(TrueTypeConforming, LocaHasOneEntryMoreThanThereAreGlyphs) {
  SfntBuilder builder = withHead(fontOf({"zero", "one!", "two!"}));
  EXPECT_EQ(WrittenSfnt(conforming(builder, {1}, 1, 2)).bodies.at("loca"),
            BeBytes().u32(0).u32(4).u32(8).str());
  EXPECT_EQ(WrittenSfnt(conforming(builder, {1}, 1, 0)).bodies.at("loca").size(), 16u);
}

TEST(TrueTypeConforming, VariationsOfDroppedGlyphsGo) {
  BeBytes gvar;
  gvar.u16(1).u16(0).u16(0).u16(0).u32(26).u16(2).u16(0).u32(26).u16(0).u16(1).u16(2);
  gvar.text("aabb");
  const SfntBuilder builder = withHead(fontOf({"zero", "one"})).table("gvar", gvar.str());
  const std::string hollow = WrittenSfnt(conforming(builder, {}, 1, 2)).bodies.at("gvar");
  EXPECT_EQ(hollow.substr(20), BeBytes().u16(0).u16(1).u16(1).text("aa").str());
}

TEST(TrueTypeConforming, OffsetsThatAShortLocaCannotHoldAreRefused) {
  SfntBuilder builder = withHead(SfntBuilder());
  builder.table("glyf", std::string(300'000, 'g'));
  builder.table("loca", BeBytes().u16(0).u16(0xFFFF).u16(0).u16(0xFFFF).u16(0xFFFF).str());
  EXPECT_EQ(conforming(builder, {2}, 0, 4), "false");
  EXPECT_NE(conforming(builder, {}, 0, 4), "false");
}

TEST(TrueTypeConforming, NeedsGlyfLocaAndHead) {
  EXPECT_EQ(conforming(withHead(SfntBuilder().table("CFF", "c")), {}, 0, 1), "false");
  EXPECT_EQ(conforming(fontOf({"zero"}), {}, 1, 1), "false");
}

TEST(TrueTypeConforming, AFontThatIsNotWholeIsRefused) {
  const SfntBuilder builder = withHead(fontOf({"zero", "one", "two"})).table("zzzz", "last");
  const std::string whole = builder.build();
  qxtest::forEachPrefix(whole, [&](const std::string& bytes) {
    OpenedSfnt font(whole, bytes, 1);
    font.source.glyphCount = 3;
    EXPECT_EQ(conforming(font, {1, 2}), "false") << bytes.size();
  });
  OpenedSfnt font(whole, 1);
  font.source.glyphCount = 3;
  EXPECT_NE(conforming(font, {1, 2}), "false");
}

TEST(TrueTypeConforming, ADirectoryThatIsDamagedAnywhereIsSurvived) {
  const std::string whole = qxtest::sampleFont().build();
  qxtest::forEachDamage(whole.substr(0, 12 + 10 * 16), [&](const std::string& directory) {
    OpenedSfnt font(directory, whole);
    font.source.glyphCount = 4;
    EXPECT_LT(conforming(font, {3, 900}).size(), std::size_t{1} << 22);
  });
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
