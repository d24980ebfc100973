#include "font/directory/table_directory.h"

#include <gtest/gtest.h>

#include "support/be_bytes.h"

namespace QXFontService_NS::sfnt {
namespace {

ByteView viewOf(const std::string& bytes) {
  return ByteView(bytes.data(), bytes.size());
}

std::string record(const char* tag, std::uint32_t offset, std::uint32_t length) {
  return qxtest::BeBytes().tag(tag).u32(0xDEADBEEF).u32(offset).u32(length).str();
}

TEST(Tag, IsTheBigEndianNumber) {
  EXPECT_EQ(tagOf("OS/2"), 0x4F532F32u);
  EXPECT_EQ(tagOf("CFF "), 0x43464620u);
}

TEST(OffsetTable, DecodesVersionAndCount) {
  const std::string bytes = qxtest::BeBytes().tag("OTTO").u16(7).zeros(6).str();
  const OffsetTable table = OffsetTable::decode(viewOf(bytes));
  EXPECT_EQ(table.sfntVersion, 0x4F54544Fu);
  EXPECT_EQ(table.numTables, 7);
}

TEST(TableDirectory, FindsByTagAndIteratesInFileOrder) {
  const std::string bytes = record("post", 1, 2) + record("CFF", 3, 4) + record("glyf", 5, 6);
  const TableDirectory directory{viewOf(bytes)};
  ASSERT_EQ(directory.size(), 3u);
  std::vector<std::uint32_t> tags;
  for (const TableRecord& table : directory) tags.push_back(table.tag);
  EXPECT_EQ(tags, (std::vector<std::uint32_t>{tagOf("post"), tagOf("CFF "), tagOf("glyf")}));
  ASSERT_NE(directory.find(tagOf("CFF ")), nullptr);
  EXPECT_EQ(directory.find(tagOf("CFF "))->offset, 3u);
  EXPECT_EQ(directory.find(tagOf("CFF "))->length, 4u);
  EXPECT_FALSE(directory.has(tagOf("head")));
}

TEST(TableDirectory, TheFirstOfEqualTagsWins) {
  const std::string bytes =
      record("head", 1, 1) + record("glyf", 2, 2) + record("head", 3, 3) + record("glyf", 4, 4);
  const TableDirectory directory{viewOf(bytes)};
  ASSERT_EQ(directory.size(), 2u);
  EXPECT_EQ(directory.find(tagOf("head"))->offset, 1u);
  EXPECT_EQ(directory.find(tagOf("glyf"))->offset, 2u);
}

TEST(TableDirectory, HoldsNoneOneAndEveryTagOfAFullDirectory) {
  EXPECT_EQ(TableDirectory().find(0), nullptr);
  EXPECT_EQ(TableDirectory(viewOf(record("a", 1, 1))).size(), 1u);
  qxtest::BeBytes full;
  for (std::uint32_t i = 0; i < 0xFFFF; ++i) full.u32(0xFFFF - i).u32(0).u32(i).u32(1);
  const TableDirectory directory{viewOf(full.str())};
  ASSERT_EQ(directory.size(), 0xFFFFu);
  EXPECT_EQ(directory.begin()->tag, 0xFFFFu);
  EXPECT_EQ(directory.find(1)->offset, 0xFFFEu);
}

TEST(TableDirectory, DropsHalfARecord) {
  const std::string bytes = record("head", 1, 1) + record("glyf", 2, 2).substr(0, 15);
  EXPECT_EQ(TableDirectory(viewOf(bytes)).size(), 1u);
}

}  // namespace
}  // namespace QXFontService_NS::sfnt
