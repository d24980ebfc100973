#include "common/bytes/stream_read.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

namespace QXCommonNS::bytes {
namespace {

TEST(StreamRead, ReadsAtAnyPositionAfterTheEndWasHit) {
  std::istringstream stream("abcdef");
  std::array<std::byte, 4> four{};
  EXPECT_EQ(readUpTo(stream, 4, four), 2u);
  EXPECT_EQ(four[1], std::byte{'f'});
  EXPECT_TRUE(readExact(stream, 0, four));
  EXPECT_EQ(four[0], std::byte{'a'});
  EXPECT_TRUE(stream.good());
}

TEST(StreamRead, OutsideIsAShortReadOfNothing) {
  std::istringstream stream("abc");
  std::array<std::byte, 1> one{};
  EXPECT_EQ(readUpTo(stream, -1, one), 0u);
  EXPECT_EQ(readUpTo(stream, 3, one), 0u);
  EXPECT_EQ(readUpTo(stream, INT64_C(1) << 40, one), 0u);
  EXPECT_TRUE(readExact(stream, 2, one));
}

TEST(StreamRead, BlocksGrowWithWhatComes) {
  const std::string text(200000, 'q');
  std::istringstream stream(text);
  EXPECT_EQ(readBlock(stream, 0, 200000).size(), 200000u);
  EXPECT_EQ(readBlock(stream, 100, UINT64_C(1) << 40).size(), 199900u);
  EXPECT_EQ(readBlock(stream, 5, 3).size(), 3u);
  EXPECT_TRUE(readBlock(stream, 0, 0).empty());
}

}  // namespace
}  // namespace QXCommonNS::bytes
