#include "embed/cff_sfnt_subset.h"

#include <gtest/gtest.h>

#include "embed/cff_subset.h"
#include "embed/cff_subset_fixture.h"
#include "embed/subset_fixture.h"
#include "support/table_builders.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::CffBuilder;
using qxtest::SfntBuilder;

/// An OpenType font around a CFF table, as the writers see it.
struct OpenedOtf {
  explicit OpenedOtf(const std::string& cffTable)
      : builder(SfntBuilder(SfntBuilder::kOpenType)
                    .table("head", qxtest::HeadBuilder().build())
                    .table("maxp", "maxp!")
                    .table("CFF ", cffTable)),
        sfnt(builder) {
    cff.table = {&sfnt.stream, static_cast<std::int64_t>(builder.offsetOf("CFF ")),
                 static_cast<std::uint32_t>(cffTable.size())};
    cff.info = &info;
    cff.spaceGlyph = 1;
    loaded = info.readCFF(sfnt.stream, static_cast<unsigned>(cff.table.offset));
  }

  SfntBuilder builder;
  OpenedSfnt sfnt;
  FS_CFFInfo info;
  CffSubsetSource cff;
  bool loaded = false;
};

TEST(CffSfntSubset, ReplacesTheCffTableAlone) {
  CffBuilder builder = nameKeyedFont(8);
  OpenedOtf font(builder.build());
  ASSERT_TRUE(font.loaded);
  const WrittenSfnt out(formOf(
      [&](auto& stream) { return writeCffSubset(font.sfnt.source, font.cff, {5}, stream); }));
  EXPECT_EQ(out.bytes.substr(0, 4), "OTTO");
  EXPECT_EQ(out.tags, (std::vector<std::string>{"CFF ", "head", "maxp"}));
  EXPECT_EQ(out.bodies.at("head"), WrittenSfnt(font.builder.build()).bodies.at("head"));
  EXPECT_EQ(out.bodies.at("maxp"), "maxp!");
  const std::string cff =
      written([&](auto& stream) { return makeCFFSubsetFont(font.cff, {5}, stream); });
  EXPECT_EQ(out.bodies.at("CFF "), cff);
  EXPECT_EQ(out.checkSums.at("CFF "), qxtest::tableChecksum(cff));
}

TEST(CffSfntSubset, WritesNothingWhereTheCffTableFails) {
  CffBuilder builder = nameKeyedFont(8);
  OpenedOtf font(builder.build());
  for (const Gids& gids : {Gids{}, Gids{8}}) {
    EXPECT_EQ(formOf([&](auto& stream) {
                return writeCffSubset(font.sfnt.source, font.cff, gids, stream);
              }),
              "false");
  }
}

TEST(CffTableCopy, IsTheTableByteForByte) {
  CffBuilder builder = nameKeyedFont(3);
  const std::string table = builder.build();
  OpenedOtf font(table);
  EXPECT_EQ(formOf([&](auto& stream) { return copyCffTable(font.cff.table, stream); }), table);
}

TEST(CffTableCopy, ShortTableIsFalseButKeepsWhatCame) {
  std::istringstream stream("?table");
  QXCommonNS::QXMemStream out(nullptr, 8192, false, true);
  EXPECT_FALSE(copyCffTable({&stream, 1, 100}, out));
  EXPECT_EQ(bytesIn(out), "table");
  EXPECT_FALSE(copyCffTable({}, out));
}

}  // namespace
}  // namespace QXFontService_NS::embed
