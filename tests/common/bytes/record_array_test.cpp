#include "common/bytes/record_array.h"

#include <gtest/gtest.h>

#include "common/bytes/byte_writer.h"

namespace QXCommonNS::bytes {
namespace {

struct Pair {
  static constexpr std::size_t kSize = 4;
  static Pair decode(ByteView view) { return {view.u16(0), view.u16(2)}; }
  std::uint16_t key;
  std::uint16_t value;
};

ByteWriter pairs() {
  ByteWriter out;
  out.u16(3);
  for (unsigned key = 10; key <= 30; key += 10) {
    out.u16(static_cast<std::uint16_t>(key)).u16(static_cast<std::uint16_t>(key * 2));
  }
  return out;
}

auto byKey(int key) {
  return [key](const Pair& pair) { return int{pair.key} - key; };
}

TEST(RecordArray, DecodesOnAccess) {
  const ByteWriter data = pairs();
  const RecordArray<Pair> array(data.view(), 2, 3);
  ASSERT_EQ(array.size(), 3u);
  EXPECT_EQ(array[2].value, 60);
}

TEST(RecordArray, ClipsTheCountToWhatFits) {
  const ByteWriter data = pairs();
  EXPECT_EQ(RecordArray<Pair>(data.view(), 2, 4).size(), 3u);
  EXPECT_EQ(RecordArray<Pair>(data.view(), 4, 3).size(), 2u);
  EXPECT_EQ(RecordArray<Pair>(data.view(), 2, UINT64_MAX).size(), 3u);
  EXPECT_TRUE(RecordArray<Pair>(data.view(), 500, 1).empty());
}

TEST(RecordArray, FindsByHalving) {
  const ByteWriter data = pairs();
  const RecordArray<Pair> array(data.view(), 2, 3);
  for (int key : {10, 20, 30}) EXPECT_TRUE(array.find(byKey(key)).has_value()) << key;
  for (int key : {0, 15, 25, 40}) EXPECT_FALSE(array.find(byKey(key)).has_value()) << key;
  EXPECT_FALSE(RecordArray<Pair>().find(byKey(10)).has_value());
}

}  // namespace
}  // namespace QXCommonNS::bytes
