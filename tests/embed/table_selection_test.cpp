#include "embed/table_selection.h"

#include <gtest/gtest.h>

#include "embed/subset_fixture.h"
#include "embed/table_lists.h"

namespace QXFontService_NS::embed {
namespace {

using qxtest::BeBytes;
using qxtest::SfntBuilder;
using Tags = std::vector<std::string>;

Tags tagsOf(const SubsetTables& tables) {
  Tags tags;
  for (const auto& entry : tables) tags.push_back(BeBytes().u32(entry.first).str());
  return tags;
}

std::string offsetTableOf(const FS_TableDirectoryImage& image) {
  return textOf(QXCommonNS::bytes::ByteView(image.offsetTable()));
}

std::string offsetTable(unsigned count, unsigned range, unsigned selector, unsigned shift) {
  return BeBytes().u32(SfntBuilder::kTrueType).u16(count).u16(range).u16(selector).u16(shift).str();
}

SfntBuilder smallFont() {
  SfntBuilder font;
  font.table("prep", "p").table("loca", "locabytes").table("glyf", "g").table("OS/2", "o");
  return font;
}

TEST(TableSelection, NoListTakesAllTablesInTagOrder) {
  OpenedSfnt font(smallFont());
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(tagsOf(tables), (Tags{"OS/2", "glyf", "loca", "prep"}));
  const auto* record = font.image.find(kLocaTag);
  EXPECT_EQ(tables[kLocaTag].offset, record->offset());
  EXPECT_EQ(tables[kLocaTag].length, 9u);
  EXPECT_EQ(tables[kLocaTag].checkSum, qxtest::tableChecksum("locabytes"));
}

TEST(TableSelection, AListBringsTheOutlinesAlong) {
  OpenedSfnt font(smallFont().table("CFF", "c").table("cmap", "m"));
  const std::uint32_t list[] = {tableTag("OS/2"), 0};
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, list, tables));
  EXPECT_EQ(tagsOf(tables), (Tags{"CFF ", "OS/2", "glyf", "loca"}));
}

TEST(TableSelection, TagsThatTheFontLacksAndRepeatedTagsArePassedOver) {
  OpenedSfnt font(smallFont());
  const std::uint32_t list[] = {tableTag("kern"), kGlyfTag, tableTag("prep"),
                                tableTag("prep"), 0,        tableTag("OS/2")};
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, list, tables));
  EXPECT_EQ(tagsOf(tables), (Tags{"glyf", "loca", "prep"}));
}

TEST(TableSelection, AnEmptyListTakesTheOutlinesAlone) {
  OpenedSfnt font(smallFont());
  const std::uint32_t list[] = {0};
  SubsetTables tables;
  tables[1] = {};  // what was there before goes
  ASSERT_TRUE(selectTables(font.source, list, tables));
  EXPECT_EQ(tagsOf(tables), (Tags{"glyf", "loca"}));
}

TEST(TableSelection, NeedsGlyfWithLocaOrCff) {
  const struct {
    Tags tags;
    bool good;
  } cases[] = {{{"glyf", "loca"}, true}, {{"CFF "}, true},          {{"glyf", "CFF "}, true},
               {{"glyf"}, false},        {{"loca", "head"}, false}, {{"head"}, false}};
  for (const auto& c : cases) {
    SfntBuilder builder;
    for (const std::string& tag : c.tags) builder.table(tag, "x");
    OpenedSfnt font(builder);
    SubsetTables tables;
    tables[1] = {};
    const std::string before = offsetTableOf(font.image);
    EXPECT_EQ(selectTables(font.source, nullptr, tables), c.good) << c.tags.front();
    if (c.good) continue;
    EXPECT_EQ(tables.size(), 1u);
    EXPECT_EQ(offsetTableOf(font.image), before);
  }
}

TEST(TableSelection, SetsTheSearchFieldsForEachNumberOfTables) {
  const struct {
    unsigned count, range, selector, shift;
  } cases[] = {{1, 16, 0, 0},  {2, 32, 1, 0},  {3, 32, 1, 16},   {4, 64, 2, 0},
               {7, 64, 2, 48}, {8, 128, 3, 0}, {10, 128, 3, 32}, {17, 256, 4, 16}};
  for (const auto& c : cases) {
    SfntBuilder builder;
    builder.table("CFF", "x");
    for (unsigned i = 1; i < c.count; ++i) builder.table("t" + std::to_string(i), "x");
    OpenedSfnt font(builder);
    SubsetTables tables;
    ASSERT_TRUE(selectTables(font.source, nullptr, tables));
    EXPECT_EQ(offsetTableOf(font.image), offsetTable(c.count, c.range, c.selector, c.shift));
  }
}

TEST(TableSelection, EachCallMakesTheOffsetTableAnewAndKeepsTheVersion) {
  OpenedSfnt font(SfntBuilder(SfntBuilder::kApple).table("CFF", "x").table("a", "").table("b", ""));
  const std::uint32_t list[] = {0};
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, list, tables));
  setTableCount(font.image, 0x0102);
  EXPECT_EQ(offsetTableOf(font.image),
            BeBytes().tag("true").u16(0x0102).u16(16).u16(0).u16(0).str());
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(offsetTableOf(font.image), BeBytes().tag("true").u16(3).u16(32).u16(1).u16(16).str());
}

TEST(TableSelection, LocaIsReadOnceForAFont) {
  OpenedSfnt font(smallFont());
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(textOf(QXCommonNS::bytes::ByteView(font.image.loca())), "locabytes");
  font.stream.str("something else");
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(font.image.loca().size(), 9u);
}

TEST(TableSelection, ACutLocaKeepsTheBytesThatAreThere) {
  const SfntBuilder builder = smallFont();
  const std::string bytes = builder.build();
  OpenedSfnt font(bytes, bytes.substr(0, builder.offsetOf("loca") + 4));
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(font.image.loca().size(), 4u);
  EXPECT_EQ(tables[kLocaTag].length, 9u);
}

TEST(TableSelection, ALocaOfFourGigabytesIsNotAllocated) {
  const SfntBuilder builder = smallFont().statedLength("loca", 0xFFFFFFFF);
  OpenedSfnt font(builder);
  SubsetTables tables;
  ASSERT_TRUE(selectTables(font.source, nullptr, tables));
  EXPECT_EQ(font.image.loca().size(), builder.build().size() - builder.offsetOf("loca"));
}

}  // namespace
}  // namespace QXFontService_NS::embed
