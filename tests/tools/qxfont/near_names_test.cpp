#include "qxfont/cli/near_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qxfont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EditDistance, countsLettersThatDiffer) {
  EXPECT_EQ(editDistance(u"", u""), 0);
  EXPECT_EQ(editDistance(u"Lato", u"lato"), 0);
  EXPECT_EQ(editDistance(u"Lato", u"Latto"), 1);
  EXPECT_EQ(editDistance(u"Lato", u"Lat"), 1);
  EXPECT_EQ(editDistance(u"Lato", u"Lava"), 2);
  EXPECT_EQ(editDistance(u"", u"abc"), 3);
  EXPECT_EQ(editDistance(u"kitten", u"sitting"), 3);
}

TEST(NearNames, areThoseThatHoldTheNameOrAreAFewLettersAway) {
  const std::vector<icu::UnicodeString> names = {u"DejaVu Sans", u"DejaVu Serif", u"Lato",
                                                 u"Lato Light", u"Noto Sans"};
  EXPECT_THAT(nearNames(names, u"Latto"), ElementsAre("Lato"));
  EXPECT_THAT(nearNames(names, u"dejavu"), ElementsAre("DejaVu Sans", "DejaVu Serif"));
  EXPECT_THAT(nearNames(names, u"Quite another"), IsEmpty());
}

TEST(NearNames, areThreeAtMost) {
  const std::vector<icu::UnicodeString> names = {u"Lato A", u"Lato B", u"Lato C", u"Lato D"};
  EXPECT_THAT(nearNames(names, u"lato"), ElementsAre("Lato A", "Lato B", "Lato C"));
}

}  // namespace
}  // namespace qxfont
