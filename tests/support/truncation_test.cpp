#include "support/truncation.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace qxtest {
namespace {

TEST(Truncation, GivesEachPrefixOnce) {
  std::vector<std::string> seen;
  forEachPrefix("abc", [&](const std::string& bytes) { seen.push_back(bytes); });
  EXPECT_EQ(seen, (std::vector<std::string>{"", "a", "ab"}));
}

TEST(Truncation, SetsEachFieldToItsExtremes) {
  std::set<std::string> words;
  forEachWordExtreme("abcde", [&](const std::string& bytes) { words.insert(bytes); });
  EXPECT_EQ(words.size(), 10u);
  EXPECT_TRUE(words.count("\xFF\xFF"
                          "cde") == 1);
  EXPECT_TRUE(words.count("ab\x7F\xFF"
                          "e") == 1);

  std::set<std::string> longs;
  forEachLongExtreme("abcde", [&](const std::string& bytes) { longs.insert(bytes); });
  EXPECT_EQ(longs.size(), 5u);
  EXPECT_TRUE(longs.count("\xFF\xFF\xFF\xF0"
                          "e") == 1);
}

TEST(Truncation, DamageIsAllThree) {
  int count = 0;
  forEachDamage("abcd", [&](const std::string&) { ++count; });
  EXPECT_EQ(count, 4 + 2 * 5 + 5);
}

}  // namespace
}  // namespace qxtest
