#include "common/bytes/byte_writer.h"

#include <gtest/gtest.h>

namespace QXCommonNS::bytes {
namespace {

TEST(ByteWriter, WritesBigEndian) {
  ByteWriter out;
  out.u8(1).u16(0x0203).u24(0x040506).u32(0x0708090A).text("ab");
  const ByteView view = out.view();
  ASSERT_EQ(view.size(), 12u);
  for (std::uint8_t i = 0; i < 10; ++i) EXPECT_EQ(view.u8(i), i + 1);
  EXPECT_EQ(view.u16(10), 0x6162);
}

TEST(ByteWriter, PatchesEarlierFields) {
  ByteWriter out;
  const auto length = out.patchU32();
  const auto count = out.patchU16();
  out.text("xyz");
  out.set(length, static_cast<std::uint32_t>(out.size()));
  out.set(count, 0xABCD);
  EXPECT_EQ(out.view().u32(0), 9u);
  EXPECT_EQ(out.view().u16(4), 0xABCD);
}

TEST(ByteWriter, AlignsWithZeros) {
  ByteWriter out;
  out.align(4);
  EXPECT_EQ(out.size(), 0u);
  out.u8(9).align(4);
  EXPECT_EQ(out.view().u32(0), 0x09000000u);
  out.align(4);
  EXPECT_EQ(out.size(), 4u);
}

}  // namespace
}  // namespace QXCommonNS::bytes
