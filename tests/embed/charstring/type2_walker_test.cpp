#include "embed/charstring/type2_walker.h"

#include <gtest/gtest.h>

#include "common/limits.h"
#include "support/byte_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::charstring {
namespace {

using Kind = Type2Walker::Kind;
using qxtest::bytesOf;
using qxtest::CharStringBuilder;

TEST(SubrBias, StepsAt1240And33900) {
  EXPECT_EQ(getSubrBias(0), 107);
  EXPECT_EQ(getSubrBias(1239), 107);
  EXPECT_EQ(getSubrBias(1240), 1131);
  EXPECT_EQ(getSubrBias(33899), 1131);
  EXPECT_EQ(getSubrBias(33900), 32768);
}

TEST(WorkBudget, IsSpentForGood) {
  WorkBudget budget(3);
  EXPECT_TRUE(budget.spend(2));
  EXPECT_FALSE(budget.spend(2));
  EXPECT_FALSE(budget.spend(0));
  EXPECT_TRUE(budget.isSpent());
}

TEST(Type2Walker, DecodesEveryNumberForm) {
  const std::vector<int> values = {-107, 107, 108, 1131, -108, -1131, 1132, -1132, 32767, -32768};
  const std::string bytes = CharStringBuilder().numbers(values).fixed(0xFFFE8000).str();
  WorkBudget budget = glyphBudget();
  Type2Walker walker(bytes, budget);
  for (int value : values) {
    ASSERT_EQ(walker.next(), Kind::integer);
    EXPECT_EQ(walker.integer(), value);
  }
  ASSERT_EQ(walker.next(), Kind::fixed);
  EXPECT_DOUBLE_EQ(walker.fixed(), -1.5);
  EXPECT_EQ(walker.integer(), -98304);  // the raw 32 bits
  EXPECT_EQ(walker.next(), Kind::end);
  EXPECT_FALSE(walker.failed());
}

TEST(Type2Walker, AllBytesBelow32But28AreOperators) {
  for (int byte = 0; byte < 32; ++byte) {
    if (byte == 28) continue;
    const std::string bytes = bytesOf({byte, 35});
    WorkBudget budget = glyphBudget();
    Type2Walker walker(bytes, budget);
    ASSERT_EQ(walker.next(), Kind::op);
    EXPECT_EQ(walker.op(), byte == 12 ? 0x0C23u : static_cast<unsigned>(byte));
  }
}

TEST(Type2Walker, ItemsCutShortEndTheCharstring) {
  for (const std::string& bytes : {bytesOf({28, 1}), bytesOf({255, 1, 2, 3}), bytesOf({247}),
                                   bytesOf({254}), bytesOf({12}), bytesOf({})}) {
    WorkBudget budget = glyphBudget();
    Type2Walker walker(bytes, budget);
    EXPECT_EQ(walker.next(), Kind::end);
    EXPECT_FALSE(walker.failed());
  }
}

TEST(Type2Walker, GoesOnInTheCallerBehindASubroutine) {
  const FS_CFFStrings subrs = {bytesOf({140, 28}),
                               bytesOf({141})};  // the first ends in half a number
  const std::string bytes = bytesOf({150, 151});
  WorkBudget budget = glyphBudget();
  Type2Walker walker(bytes, budget);
  std::vector<int> seen;
  walker.next();
  seen.push_back(walker.integer());
  walker.call(subrs, -107);
  walker.next();
  seen.push_back(walker.integer());
  walker.call(subrs, -106);
  while (walker.next() == Kind::integer) seen.push_back(walker.integer());
  EXPECT_EQ(seen, (std::vector<int>{11, 1, 2, 12}));
}

TEST(Type2Walker, NumbersOutsideAreNotCalled) {
  const FS_CFFStrings subrs = {bytesOf({140})};
  WorkBudget budget = glyphBudget();
  const std::string bytes = bytesOf({150});
  Type2Walker walker(bytes, budget);
  for (std::int64_t number : {-108, -106, 1000000, -1000000}) walker.call(subrs, number);
  ASSERT_EQ(walker.next(), Kind::integer);
  EXPECT_EQ(walker.integer(), 11);
}

TEST(Type2Walker, LeavesTheLevelItIsIn) {
  const FS_CFFStrings subrs = {bytesOf({140, 141})};
  const std::string bytes = bytesOf({150});
  WorkBudget budget = glyphBudget();
  Type2Walker walker(bytes, budget);
  walker.call(subrs, -107);
  walker.next();
  walker.leave();
  ASSERT_EQ(walker.next(), Kind::integer);
  EXPECT_EQ(walker.integer(), 11);
}

TEST(Type2Walker, TakesBytesAsFarAsTheyAreThere) {
  const std::string bytes = bytesOf({19, 1, 2, 3});
  WorkBudget budget = glyphBudget();
  Type2Walker walker(bytes, budget);
  walker.next();
  EXPECT_EQ(walker.take(2).size(), 2u);
  EXPECT_EQ(walker.take(5).size(), 1u);
  EXPECT_EQ(walker.take(5).size(), 0u);
  EXPECT_EQ(walker.next(), Kind::end);
  EXPECT_EQ(walker.take(1).size(), 0u);
}

TEST(Type2Walker, TooManyOpenCallsFail) {
  const FS_CFFStrings subrs = {bytesOf({140, 141})};
  const std::string bytes = bytesOf({150});
  WorkBudget budget = glyphBudget();
  Type2Walker walker(bytes, budget);
  for (std::size_t i = 0; i < QXCommonNS::limits::kMostCharStringCalls; ++i)
    walker.call(subrs, -107);
  EXPECT_FALSE(walker.failed());
  walker.call(subrs, -107);
  EXPECT_TRUE(walker.failed());
  EXPECT_EQ(walker.next(), Kind::end);
}

TEST(Type2Walker, SpentBudgetFails) {
  const std::string bytes(10, '\x8B');
  WorkBudget budget(5);
  Type2Walker walker(bytes, budget);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(walker.next(), Kind::integer);
  EXPECT_EQ(walker.next(), Kind::end);
  EXPECT_TRUE(walker.failed());
}

}  // namespace
}  // namespace QXFontService_NS::charstring
