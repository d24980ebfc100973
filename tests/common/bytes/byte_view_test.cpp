#include "common/bytes/byte_view.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace QXCommonNS::bytes {
namespace {

constexpr std::array kBytes = {std::byte{0x80}, std::byte{0x01}, std::byte{0x02}, std::byte{0x03},
                               std::byte{0x04}};

TEST(ByteView, ReadsBigEndian) {
  const ByteView view(kBytes);
  EXPECT_EQ(view.u8(0), 0x80);
  EXPECT_EQ(view.u16(1), 0x0102);
  EXPECT_EQ(view.i16(0), -32767);
  EXPECT_EQ(view.u24(2), 0x020304u);
  EXPECT_EQ(view.u32(0), 0x80010203u);
  EXPECT_EQ(view.i32(0), -2147417597);
}

TEST(ByteView, TotalReadsGiveZeroForEachByteOutside) {
  const ByteView view(kBytes);
  EXPECT_EQ(view.u8(5), 0);
  EXPECT_EQ(view.u16(4), 0x0400);
  EXPECT_EQ(view.u24(3), 0x030400u);
  EXPECT_EQ(view.u32(2), 0x02030400u);
  EXPECT_EQ(view.u32(std::numeric_limits<std::uint64_t>::max() - 1), 0u);
  EXPECT_EQ(ByteView().u32(0), 0u);
}

TEST(ByteView, StrictReadsNeedAllBytes) {
  const ByteView view(kBytes);
  EXPECT_EQ(view.tryU8(4), 0x04);
  EXPECT_FALSE(view.tryU8(5));
  EXPECT_EQ(view.tryU16(3), 0x0304);
  EXPECT_FALSE(view.tryU16(4));
  EXPECT_EQ(view.tryU32(1), 0x01020304u);
  EXPECT_FALSE(view.tryU32(2));
  EXPECT_FALSE(view.tryU32(std::numeric_limits<std::uint64_t>::max() - 2));
}

TEST(ByteView, ContainsDoesNotWrap) {
  const ByteView view(kBytes);
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
  EXPECT_TRUE(view.contains(0, 5));
  EXPECT_TRUE(view.contains(5, 0));
  EXPECT_FALSE(view.contains(6, 0));
  EXPECT_FALSE(view.contains(1, 5));
  EXPECT_FALSE(view.contains(kMax, 1));
  EXPECT_FALSE(view.contains(1, kMax));
}

TEST(ByteView, SlicesAreClippedOrRefused) {
  const ByteView view(kBytes);
  EXPECT_EQ(view.slice(3, 100).size(), 2u);
  EXPECT_TRUE(view.slice(5, 1).empty());
  EXPECT_EQ(view.from(1).u8(0), 0x01);
  EXPECT_TRUE(view.from(6).empty());
  EXPECT_TRUE(view.trySlice(3, 2).has_value());
  EXPECT_FALSE(view.trySlice(3, 3).has_value());
}

TEST(ByteView, WordsAreDecodedUpToTheLastWholeOne) {
  constexpr std::array<std::byte, 5> kFive{std::byte{1}, std::byte{2}, std::byte{3}, std::byte{4},
                                           std::byte{5}};
  const ByteView view{std::span<const std::byte>(kFive)};
  std::array<char16_t, 3> three{9, 9, 9};
  view.words(three);
  EXPECT_EQ(three, (std::array<char16_t, 3>{0x0102, 0x0304, 0}));
  std::array<char16_t, 1> one{9};
  view.words(one);
  EXPECT_EQ(one[0], 0x0102);
  view.words({});
  ByteView().words(one);
  EXPECT_EQ(one[0], 0);
}

}  // namespace
}  // namespace QXCommonNS::bytes
