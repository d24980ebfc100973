#include "layout/gsub/context_output.h"

#include <gtest/gtest.h>

#include <random>

namespace QXFontService_NS::layout {
namespace {

GlyphIDArray runOf(int size) {
  GlyphIDArray array;
  for (int i = 0; i < size; ++i) array.push_back(static_cast<unsigned short>(100 + i), GCD_BASE);
  return array;
}

std::vector<int> idsOf(const ContextOutput& output) {
  std::vector<int> ids;
  for (const GlyphIDClassPair& pair : output.front(output.size())) ids.push_back(pair.glyphID);
  return ids;
}

std::vector<int> idsOf(const GlyphIDArray& array) {
  std::vector<int> ids;
  for (const GlyphIDClassPair& pair : array) ids.push_back(pair.glyphID);
  return ids;
}

TEST(ContextOutput, BeginsAsACopyAndHoldsNothing) {
  const GlyphIDArray array = runOf(3);
  WorkMeter meter = WorkMeter::forStep(3);
  const GlyphSequence glyphs(array, meter);
  ContextOutput output;
  output.reset(glyphs);
  EXPECT_EQ(idsOf(output), idsOf(array));
  EXPECT_TRUE(output.state().held.empty());
  output.eraseFront(2);
  EXPECT_EQ(idsOf(output), (std::vector<int>{102}));
  output.eraseFront(5);
  EXPECT_EQ(output.size(), 0);
}

TEST(ContextOutput, DropsWritesOutsideAndAppendsInserts) {
  const GlyphIDArray array = runOf(2);
  WorkMeter meter = WorkMeter::forStep(2);
  const GlyphSequence glyphs(array, meter);
  ContextOutput output;
  output.reset(glyphs);
  output.set(2, {1, GCD_BASE});
  output.set(-1, {1, GCD_BASE});
  EXPECT_EQ(idsOf(output), idsOf(array));
  output.insert(9, {2, GCD_BASE});
  EXPECT_EQ(idsOf(output), (std::vector<int>{100, 101, 2}));
  output.eraseFront(3);
  output.insert(0, {3, GCD_BASE});
  EXPECT_EQ(idsOf(output), (std::vector<int>{3}));
}

TEST(ContextOutput, HoldsOnlyWhatChanged) {
  const GlyphIDArray array = runOf(1000);
  WorkMeter meter = WorkMeter::forStep(1000);
  const GlyphSequence glyphs(array, meter);
  ContextOutput output;
  output.reset(glyphs);
  output.set(500, {1, GCD_BASE});
  output.insert(502, {2, GCD_BASE});
  output.set(499, {3, GCD_BASE});
  EXPECT_EQ(output.state().held.size(), 5u);
  EXPECT_EQ(output.at(498).glyphID, 598);
  EXPECT_EQ(output.at(503).glyphID, 602);
}

TEST(ContextOutput, DoesAsAWholeCopyDoes) {
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    const GlyphIDArray array = runOf(static_cast<int>(random() % 12));
    WorkMeter meter = WorkMeter::forStep(array.size());
    const GlyphSequence glyphs(array, meter);
    ContextOutput output;
    output.reset(glyphs);
    GlyphIDArray plain = array;
    for (int step = 0; step < 12; ++step) {
      const int at = static_cast<int>(random() % 14);
      const GlyphIDClassPair pair(static_cast<unsigned short>(step), GCD_MARK);
      switch (random() % 4) {
        case 0:
          output.set(at, pair);
          if (at < plain.size()) plain[at] = pair;
          break;
        case 1:
          output.insert(at, pair);
          plain.insert(at, pair);
          break;
        case 2:
          output.eraseFront(at / 5);
          plain.erase(0, at / 5);
          break;
        default: {
          const ContextOutput::State state = output.state();
          output.set(at, pair);
          output.restore(state);
        }
      }
      ASSERT_EQ(idsOf(output), idsOf(plain));
    }
  }
}

}  // namespace
}  // namespace QXFontService_NS::layout
