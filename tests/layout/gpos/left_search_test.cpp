#include "layout/gpos/left_search.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace QXFontService_NS::layout {
namespace {

int walk(const std::vector<bool>& meets, int place) {
  while (--place >= 0)
    if (meets[static_cast<std::size_t>(place)]) return place;
  return -1;
}

TEST(LeftSearch, AnswersAsAWalkDoes) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    std::vector<bool> first(20);
    std::vector<bool> second(20);
    for (std::size_t i = 0; i < 20; ++i) {
      first[i] = random() % 6 == 0;
      second[i] = random() % 3 == 0;
    }
    LeftSearch search;
    int steps = 0;
    for (int i = 0; i < 100; ++i) {
      const int place = static_cast<int>(random() % 21);
      const unsigned condition = random() % 5 == 0 ? 7 : 0;
      const std::vector<bool>& meets = condition == 7 ? second : first;
      const auto met = [&meets](int at) { return meets[static_cast<std::size_t>(at)]; };
      ASSERT_EQ(search.before(place, condition, met, steps), walk(meets, place));
    }
  }
}

TEST(LeftSearch, LooksAtNoPlaceTwiceOnTheWayToTheRight) {
  LeftSearch search;
  int steps = 0;
  const auto isFirst = [](int place) { return place == 0; };
  for (int place = 0; place <= 1000; ++place)
    EXPECT_EQ(search.before(place, 0, isFirst, steps), place == 0 ? -1 : 0);
  EXPECT_EQ(steps, 1000);
}

}  // namespace
}  // namespace QXFontService_NS::layout
