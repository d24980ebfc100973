#include "qxfont/typeset/bidi.h"

#include <gtest/gtest.h>

namespace qxfont {
namespace {

TEST(Bidi, aParagraphRunsAsItsFirstLetter) {
  EXPECT_FALSE(Bidi(u"").isRightToLeft());
  EXPECT_FALSE(Bidi(u"12 abc \u05D0").isRightToLeft());
  EXPECT_TRUE(Bidi(u"12 \u05D0 abc").isRightToLeft());
}

TEST(Bidi, levels) {
  const Bidi bidi(u"a\u05D01");
  EXPECT_EQ(bidi.levelAt(0), 0);
  EXPECT_EQ(bidi.levelAt(1), 1);
  EXPECT_EQ(bidi.levelAt(2), 2);  // a number inside runs from left to right again
}

TEST(Bidi, visualOrderTurnsRunsRound) {
  EXPECT_EQ(visualOrder({}), std::vector<int>{});
  EXPECT_EQ(visualOrder({0, 1, 1, 0}), (std::vector<int>{0, 2, 1, 3}));
  EXPECT_EQ(visualOrder({1, 2, 2, 1}), (std::vector<int>{3, 1, 2, 0}));
}

}  // namespace
}  // namespace qxfont
