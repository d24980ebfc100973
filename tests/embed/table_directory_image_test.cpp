#include "embed/table_directory_image.h"

#include <gtest/gtest.h>

#include <string>

#include "support/be_bytes.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::bytes::ByteView;

ByteView viewOf(const std::string& bytes) {
  return ByteView(bytes.data(), bytes.size());
}

std::string record(const char* tag, std::uint32_t value) {
  return qxtest::BeBytes().tag(tag).u32(value).u32(value + 1).u32(value + 2).str();
}

constexpr std::uint32_t kCff = 0x43464620;

TEST(TableDirectoryImage, KeepsTheOffsetTableByteForByte) {
  const std::string header = qxtest::BeBytes().tag("OTTO").u16(1).u16(2).u16(3).u16(4).str();
  FS_TableDirectoryImage image(viewOf(header), {});
  for (std::size_t i = 0; i < header.size(); ++i)
    EXPECT_EQ(image.offsetTable()[i], static_cast<std::byte>(header[i])) << i;
  image.offsetTable()[5] = std::byte{9};
  EXPECT_EQ(image.offsetTable()[5], std::byte{9});
}

TEST(TableDirectoryImage, RecordsComeInTagOrderInFileForm) {
  const std::string directory = record("prep", 1) + record("CFF", 10) + record("OS/2", 20);
  const FS_TableDirectoryImage image({}, viewOf(directory));
  ASSERT_EQ(image.records().size(), 3u);
  EXPECT_EQ(image.records()[0].tag(), kCff);
  EXPECT_EQ(image.records()[2].tag(), 0x70726570u);
  const auto* cff = image.find(kCff);
  ASSERT_NE(cff, nullptr);
  EXPECT_EQ(cff->checkSum(), 10u);
  EXPECT_EQ(cff->offset(), 11u);
  EXPECT_EQ(cff->length(), 12u);
  EXPECT_EQ(image.find(kCff + 1), nullptr);
}

TEST(TableDirectoryImage, TheFirstOfEqualTagsWins) {
  const FS_TableDirectoryImage image({}, viewOf(record("CFF", 1) + record("CFF", 5)));
  ASSERT_EQ(image.records().size(), 1u);
  EXPECT_EQ(image.find(kCff)->checkSum(), 1u);
}

TEST(TableDirectoryImage, LocaIsEmptyUntilItIsSet) {
  FS_TableDirectoryImage image;
  EXPECT_TRUE(image.loca().empty());
  EXPECT_EQ(image.find(kCff), nullptr);
  image.setLoca({std::byte{1}});
  EXPECT_EQ(image.loca().size(), 1u);
}

}  // namespace
}  // namespace QXFontService_NS
