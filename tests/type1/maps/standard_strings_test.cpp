#include "type1/maps/standard_strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace QXFontService_NS::type1 {
namespace {

TEST(StandardStrings, HasTheEndsAndTheTurningPointsOfAppendixA) {
  EXPECT_EQ(kStandardStrings.size(), 391u);
  EXPECT_EQ(kStandardStrings[0], ".notdef");
  EXPECT_EQ(kStandardStrings[1], "space");
  EXPECT_EQ(kStandardStrings[34], "A");
  EXPECT_EQ(kStandardStrings[149], "germandbls");
  EXPECT_EQ(kStandardStrings[228], "zcaron");
  EXPECT_EQ(kStandardStrings[229], "exclamsmall");
  EXPECT_EQ(kStandardStrings[378], "Ydieresissmall");
  EXPECT_EQ(kStandardStrings[379], "001.000");
  EXPECT_EQ(kStandardStrings[390], "Semibold");
}

TEST(StandardStrings, AreAllDifferentAndNotEmpty) {
  const std::set<std::string_view> names(kStandardStrings.begin(), kStandardStrings.end());
  EXPECT_EQ(names.size(), kStandardStringCount);
  EXPECT_EQ(names.count(""), 0u);
}

TEST(StandardEncodingSids, NamesTheLettersAndLeavesHolesAtZero) {
  EXPECT_EQ(kStandardEncodingSids[0], 0);
  EXPECT_EQ(kStandardEncodingSids[31], 0);
  EXPECT_EQ(kStandardEncodingSids[32], 1);
  EXPECT_EQ(kStandardStrings[kStandardEncodingSids['A']], "A");
  EXPECT_EQ(kStandardStrings[kStandardEncodingSids[39]], "quoteright");
  EXPECT_EQ(kStandardStrings[kStandardEncodingSids[194]], "acute");
  EXPECT_EQ(kStandardStrings[kStandardEncodingSids[251]], "germandbls");
  EXPECT_EQ(kStandardEncodingSids[127], 0);
  EXPECT_EQ(kStandardEncodingSids[255], 0);
}

TEST(StandardEncodingSids, Encodes149CodesOnceEachInSidOrder) {
  std::vector<int> sids;
  for (int sid : kStandardEncodingSids)
    if (sid != 0) sids.push_back(sid);
  ASSERT_EQ(sids.size(), 149u);
  EXPECT_TRUE(std::is_sorted(sids.begin(), sids.end()));
  EXPECT_EQ(sids.front(), 1);
  EXPECT_EQ(sids.back(), 149);
}

}  // namespace
}  // namespace QXFontService_NS::type1
