#include "layout/gsub/gap_buffer.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace QXFontService_NS::layout {
namespace {

std::vector<int> itemsOf(const GapBuffer<int>& buffer) {
  std::vector<int> items;
  for (int i = 0; i < buffer.size(); ++i) items.push_back(buffer[i]);
  return items;
}

using Items = std::vector<int>;

TEST(GapBuffer, InsertsAndErases) {
  GapBuffer<int> buffer({1, 2, 3});
  buffer.insert(1, Items{8, 9});
  EXPECT_EQ(itemsOf(buffer), (Items{1, 8, 9, 2, 3}));
  buffer.erase(0, 2);
  EXPECT_EQ(itemsOf(buffer), (Items{9, 2, 3}));
  buffer.insert(0, 2, 7);
  EXPECT_EQ(itemsOf(buffer), (Items{7, 7, 9, 2, 3}));
  EXPECT_EQ(buffer.release(), (Items{7, 7, 9, 2, 3}));
  EXPECT_EQ(buffer.size(), 0);
}

TEST(GapBuffer, InsertsAtTheEndFromOutsideAndErasesWhatIsThere) {
  GapBuffer<int> buffer({1, 2});
  buffer.insert(9, 1, 5);
  buffer.insert(-1, 1, 6);
  EXPECT_EQ(itemsOf(buffer), (Items{1, 2, 5, 6}));
  buffer.insert(0, 0, 7);
  buffer.insert(0, -3, 7);
  buffer.erase(3, 9);
  buffer.erase(2, 1);
  buffer.erase(7, 9);
  buffer.erase(-5, 1);
  EXPECT_EQ(itemsOf(buffer), (Items{2, 5}));
}

TEST(GapBuffer, ShowsHowItsItemsLie) {
  GapBuffer<int> buffer({1, 2, 3, 4});
  buffer.erase(1, 3);
  EXPECT_EQ(buffer.gapStart(), 1);
  EXPECT_EQ(buffer.gapLength(), 2);
  EXPECT_EQ(buffer.data()[3], 4);
}

TEST(GapBuffer, DoesAsAVectorDoes) {
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    Items plain(random() % 20, 1);
    GapBuffer<int> buffer(plain);
    for (int step = 0; step < 60; ++step) {
      const int at = static_cast<int>(random() % (plain.size() + 1));
      const int count = static_cast<int>(random() % 4);
      if (random() % 2 == 0) {
        const Items added(static_cast<std::size_t>(count), step);
        plain.insert(plain.begin() + at, added.begin(), added.end());
        buffer.insert(at, added);
      } else {
        const int end = std::min(at + count, static_cast<int>(plain.size()));
        plain.erase(plain.begin() + at, plain.begin() + end);
        buffer.erase(at, at + count);
      }
      ASSERT_EQ(itemsOf(buffer), plain);
    }
    EXPECT_EQ(buffer.release(), plain);
  }
}

}  // namespace
}  // namespace QXFontService_NS::layout
