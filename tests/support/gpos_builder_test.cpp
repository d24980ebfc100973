#include "support/gpos_builder.h"

#include <gtest/gtest.h>

namespace qxtest {
namespace {

std::string hex(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (i > 0 && i % 2 == 0) text += ' ';
    text += {kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return text;
}

TEST(GposBuilder, WritesAnchors) {
  EXPECT_EQ(hex(anchorTable(1, -2)), "0001 0001 fffe");
  EXPECT_EQ(hex(anchorTable(1, 2, 2)), "0002 0001 0002 0007");
  EXPECT_EQ(hex(anchorTable(1, 2, 3)),
            "0003 0001 0002 000a 0012 000c 000c 0001 4000 000c 000c 0001 4000");
}

TEST(GposBuilder, WritesSingles) {
  EXPECT_EQ(hex(singlePos1("cc", 5, {1, -1})), "0001 000a 0005 0001 ffff 6363");
  EXPECT_EQ(hex(singlePos2("cc", 4, {{7}, {8}})), "0002 000c 0004 0002 0007 0008 6363");
}

TEST(GposBuilder, WritesPairs) {
  EXPECT_EQ(hex(pairPos1("cc", 4, 1, {{{9, {1}, {2}}}})),
            "0001 000c 0004 0001 0001 000e 6363 0001 0009 0001 0002");
  EXPECT_EQ(hex(pairPos2("cc", 4, 0, "11", "22", {{{{1}, {}}, {{2}, {}}}})),
            "0002 0014 0004 0000 0016 0018 0001 0002 0001 0002 6363 3131 3232");
}

TEST(GposBuilder, WritesJoints) {
  EXPECT_EQ(hex(cursivePos("cc", {{"ee", ""}, {"", "xx"}})),
            "0001 000e 0002 0010 0000 0000 0012 6363 6565 7878");
}

TEST(GposBuilder, WritesMarks) {
  EXPECT_EQ(hex(markPos("mm", "bb", 2, {{1, "aa"}}, {{"xx", ""}})),
            "0001 000c 000e 0002 0010 0018 6d6d 6262 0001 0001 0006 6161 0001 0006 0000 7878");
  EXPECT_EQ(hex(markLigPos("mm", "ll", 1, {{0, "aa"}}, {{{"xx"}, {"yy"}}})),
            "0001 000c 000e 0001 0010 0018 6d6d 6c6c 0001 0000 0006 6161 "
            "0001 0004 0002 0006 0008 7878 7979");
}

}  // namespace
}  // namespace qxtest
