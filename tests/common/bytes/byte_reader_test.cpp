#include "common/bytes/byte_reader.h"

#include <gtest/gtest.h>

#include <array>

namespace QXCommonNS::bytes {
namespace {

constexpr std::array kBytes = {std::byte{1}, std::byte{2}, std::byte{3}, std::byte{4},
                               std::byte{5}, std::byte{6}, std::byte{7}};

TEST(ByteReader, WalksFields) {
  ByteReader reader{ByteView(kBytes)};
  EXPECT_EQ(reader.u8(), 1);
  EXPECT_EQ(reader.u16(), 0x0203);
  EXPECT_EQ(reader.u24(), 0x040506u);
  EXPECT_EQ(reader.left(), 1u);
  EXPECT_EQ(reader.unsignedOf(1), 7u);
  EXPECT_FALSE(reader.failed());
}

TEST(ByteReader, LatchesTheFirstFailure) {
  ByteReader reader{ByteView(kBytes), 4};
  EXPECT_EQ(reader.u32(), 0u);
  EXPECT_TRUE(reader.failed());
  EXPECT_EQ(reader.position(), 4u);
  EXPECT_EQ(reader.u8(), 0) << "a later read that would fit must not hide the failure";
  EXPECT_TRUE(reader.failed());
}

TEST(ByteReader, TakesSlicesAndSeeks) {
  ByteReader reader{ByteView(kBytes)};
  EXPECT_EQ(reader.bytes(2).u16(0), 0x0102);
  reader.skip(1);
  EXPECT_EQ(reader.u8(), 4);
  reader.seek(6);
  EXPECT_EQ(reader.u8(), 7);
  EXPECT_TRUE(reader.bytes(1).empty());
  EXPECT_TRUE(reader.failed());
}

TEST(ByteReader, StartsBehindTheEndWithNothingLeft) {
  ByteReader reader{ByteView(kBytes), 100};
  EXPECT_EQ(reader.left(), 0u);
  EXPECT_EQ(reader.u8(), 0);
  EXPECT_TRUE(reader.failed());
}

}  // namespace
}  // namespace QXCommonNS::bytes
