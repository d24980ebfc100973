#include "qxfont/shape/mark_order.h"

#include <gtest/gtest.h>

#include <vector>

namespace qxfont {
namespace {

std::vector<int> ordered(const std::vector<int>& codePoints) {
  std::vector<RunCharacter> characters;
  for (const int codePoint : codePoints) characters.push_back({codePoint, 0, 0});
  orderArabicMarks(characters);
  std::vector<int> result;
  for (const RunCharacter& character : characters) result.push_back(character.codePoint);
  return result;
}

using Order = std::vector<int>;

TEST(MarkOrder, shaddaComesFirst) {
  EXPECT_EQ(ordered({0x0644, 0x064E, 0x0651}), (Order{0x0644, 0x0651, 0x064E}));
  EXPECT_EQ(ordered({0x0644, 0x0651, 0x064E}), (Order{0x0644, 0x0651, 0x064E}));
}

TEST(MarkOrder, marksOfTheLetterComeBeforeIt) {
  EXPECT_EQ(ordered({0x0627, 0x064E, 0x0651, 0x0654}), (Order{0x0627, 0x0654, 0x0651, 0x064E}));
  EXPECT_EQ(ordered({0x0627, 0x064E, 0x0654, 0x0655}), (Order{0x0627, 0x0655, 0x0654, 0x064E}));
}

TEST(MarkOrder, eachLetterHasItsOwn) {
  EXPECT_EQ(ordered({0x064E, 0x0651, 0x0644, 0x064E, 0x0651, 0x0644}),
            (Order{0x0651, 0x064E, 0x0644, 0x0651, 0x064E, 0x0644}));
}

TEST(MarkOrder, otherScriptsStayAsTheyAre) {
  EXPECT_EQ(ordered({0x0061, 0x0301, 0x0323}), (Order{0x0061, 0x0301, 0x0323}));
  EXPECT_EQ(ordered({}), Order{});
}

}  // namespace
}  // namespace qxfont
