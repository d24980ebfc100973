#include "embed/conforming/conforming_sfnt.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;

std::vector<std::byte> body(const std::string& text) {
  const auto view = viewOf(text);
  return {view.span().begin(), view.span().end()};
}

std::string written(const TableBodies& tables) {
  return formOf(
      [&](QXMemStream& out) { return writeConformingSfnt(SfntBuilder::kTrueType, tables, out); });
}

TEST(ConformingSfnt, IsWhatOpenTypeAsksFor) {
  const std::string head(54, 'h');
  const TableBodies tables{
      {tableTag("prep"), body("ppppp")}, {kHeadTag, body(head)}, {tableTag("OS/2"), body("oo")}};
  // The builder adds tables in the order in which they stand here.
  const std::string expected =
      SfntBuilder().table("OS/2", "oo").table("head", head).table("prep", "ppppp").build();
  const std::string font = written(tables);
  EXPECT_EQ(font, expected);
  EXPECT_EQ(qxtest::tableChecksum(font), 0xB1B0AFBAu);
  EXPECT_EQ(font.size() % 4, 0u);
}

TEST(ConformingSfnt, SetsTheSearchFields) {
  const struct {
    unsigned count, range, selector, shift;
  } cases[] = {{1, 16, 0, 0}, {2, 32, 1, 0}, {3, 32, 1, 16}, {9, 128, 3, 16}};
  for (const auto& c : cases) {
    TableBodies tables{{kHeadTag, body(std::string(12, 'h'))}};
    for (unsigned i = 1; i < c.count; ++i) tables[i] = body("t");
    EXPECT_EQ(written(tables).substr(4, 8),
              BeBytes().u16(c.count).u16(c.range).u16(c.selector).u16(c.shift).str());
  }
}

TEST(ConformingSfnt, NeedsAHeadThatHoldsTheAdjustment) {
  EXPECT_EQ(written({}), "false");
  EXPECT_EQ(written({{kGlyfTag, body("g")}}), "false");
  EXPECT_EQ(written({{kHeadTag, body(std::string(11, 'h'))}}), "false");
  EXPECT_NE(written({{kHeadTag, body(std::string(12, 'h'))}}), "false");
}

TEST(ConformingSfnt, RefusesMoreTablesThanADirectoryCounts) {
  TableBodies tables{{kHeadTag, body(std::string(12, 'h'))}};
  for (unsigned i = 1; i < 4095; ++i) tables[i] = {};
  EXPECT_NE(written(tables), "false");
  tables[4095] = {};
  EXPECT_EQ(written(tables), "false");
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
