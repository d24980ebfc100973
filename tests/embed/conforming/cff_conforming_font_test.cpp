#include "embed/conforming/cff_conforming_font.h"

#include <gtest/gtest.h>

#include "embed/cff_subset_fixture.h"
#include "embed/conforming/cff_conforming.h"
#include "embed/subset_fixture.h"
#include "support/table_builders.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::CffBuilder;
using qxtest::SfntBuilder;

/// An OpenType font of six glyphs, signed.
struct OpenedOtf {
  explicit OpenedOtf(SfntBuilder made) : builder(std::move(made)), sfnt(builder) {
    cff.table = {&sfnt.stream, static_cast<std::int64_t>(builder.offsetOf("CFF ")),
                 static_cast<std::uint32_t>(builder.bytesOf("CFF ").size())};
    cff.info = &info;
    sfnt.source.glyphCount = 6;
    loaded = info.readCFF(sfnt.stream, static_cast<unsigned>(cff.table.offset));
  }

  static SfntBuilder font() {
    CffBuilder cff = nameKeyedFont(6);
    return SfntBuilder(SfntBuilder::kOpenType)
        .table("DSIG", "signature")
        .table("head", qxtest::HeadBuilder().build())
        .table("CFF ", cff.build())
        .table("name", "names");
  }

  std::string write(const Gids& gids) {
    return formOf(
        [&](auto& stream) { return writeConformingOpenType(sfnt.source, cff, gids, stream); });
  }

  SfntBuilder builder;
  OpenedSfnt sfnt;
  FS_CFFInfo info;
  CffSubsetSource cff;
  bool loaded = false;
};

TEST(ConformingOpenType, HasTheConformingTableAndAllOthersButTheSignature) {
  OpenedOtf font(OpenedOtf::font());
  ASSERT_TRUE(font.loaded);
  const WrittenSfnt out(font.write({4}));
  EXPECT_EQ(out.bytes.substr(0, 4), "OTTO");
  EXPECT_EQ(out.tags, (std::vector<std::string>{"CFF ", "head", "name"}));
  EXPECT_EQ(out.bodies.at("name"), "names");
  std::vector<std::byte> cff;
  ASSERT_TRUE(makeConformingCff(font.cff, {4}, 6, cff));
  EXPECT_EQ(out.bodies.at("CFF "), textOf(QXCommonNS::bytes::ByteView(cff)));
}

TEST(ConformingOpenType, AllChecksumsAreRight) {
  OpenedOtf font(OpenedOtf::font());
  const WrittenSfnt out(font.write({4}));
  EXPECT_EQ(out.checkSums.at("CFF "), qxtest::tableChecksum(out.bodies.at("CFF ")));
  EXPECT_EQ(qxtest::tableChecksum(out.bytes), 0xB1B0AFBAu);
  EXPECT_EQ(out.bytes.size() % 4, 0u);
}

TEST(ConformingOpenType, RefusesGlyphsPastTheEndAndFontsWithoutCff) {
  OpenedOtf font(OpenedOtf::font());
  EXPECT_EQ(font.write({6}), "false");
  SfntBuilder none = OpenedOtf::font();
  OpenedSfnt sfnt(none.without("CFF "));
  EXPECT_EQ(formOf([&](auto& stream) {
              return writeConformingOpenType(sfnt.source, font.cff, {1}, stream);
            }),
            "false");
}

TEST(ConformingOpenType, RefusesATableThatIsNotThereWhole) {
  OpenedOtf font(OpenedOtf::font().rawEntry("zzzz", 10, 100000));
  EXPECT_EQ(font.write({1}), "false");
}

TEST(ConformingOpenType, MoreGlyphsThanCharstringsIsRefused) {
  OpenedOtf font(OpenedOtf::font());
  font.sfnt.source.glyphCount = 7;
  EXPECT_EQ(font.write({1}), "false");
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
