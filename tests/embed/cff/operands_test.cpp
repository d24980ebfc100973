#include "embed/cff/operands.h"

#include <gtest/gtest.h>

#include "common/limits.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::cff {
namespace {

using QXCommonNS::QXValue;
using qxtest::DictBuilder;

QXValue realOf(const char* text) {
  return toValue({true, 0, text});
}

TEST(DictNumberValue, IntegersStayIntegers) {
  EXPECT_TRUE(toValue({false, -7, ""}).isInteger());
  EXPECT_EQ(toValue({false, -7, ""}).getIntegerValue(), -7);
}

TEST(DictNumberValue, RealsMayBeginWithAPointAndHaveAnExponent) {
  EXPECT_TRUE(realOf(".039625").isReal());
  EXPECT_DOUBLE_EQ(realOf(".039625").getDoubleValue(), 0.039625);
  EXPECT_DOUBLE_EQ(realOf("-.5").getDoubleValue(), -0.5);
  EXPECT_DOUBLE_EQ(realOf("-12.5").getDoubleValue(), -12.5);
  EXPECT_DOUBLE_EQ(realOf("1E-5").getDoubleValue(), 1e-5);
  EXPECT_DOUBLE_EQ(realOf("2.5E3").getDoubleValue(), 2500.0);
  EXPECT_DOUBLE_EQ(realOf("0.140541E-3").getDoubleValue(), 0.000140541);
}

TEST(DictNumberValue, RealWithoutPointAndExponentIsAnInteger) {
  EXPECT_TRUE(realOf("12").isInteger());
  EXPECT_EQ(realOf("12").getIntegerValue(), 12);
}

TEST(DictNumberValue, WhatIsNoNumberIsTheIntegerZero) {
  for (const char* text : {"", "-", "--1", "E", "E5", "E-", "-E5", "..", "."}) {
    EXPECT_TRUE(realOf(text).isInteger() || realOf(text).isReal()) << text;
    EXPECT_EQ(realOf(text).getIntegerValue(), 0) << text;
  }
}

TEST(DictReader, GivesEachOperatorItsOperands) {
  const std::string dict =
      DictBuilder().numbers({1, 2}).real("2.5").op(5).op(6).number(9).op(0x0C18).number(3).str();
  DictReader reader({dict.data(), dict.size()});
  ASSERT_TRUE(reader.next());
  EXPECT_EQ(reader.op(), 5u);
  EXPECT_EQ(reader.operands().first().getIntegerValue(), 1);
  EXPECT_DOUBLE_EQ(reader.operands().last().getDoubleValue(), 2.5);
  const QXValue map = reader.operands().toMap();
  EXPECT_EQ(FS_Operand(map, 2).getIntegerValue(), 2);
  EXPECT_TRUE(FS_Operand(map, 3).isReal());
  EXPECT_TRUE(FS_Operand(map, 4).isNull());
  ASSERT_TRUE(reader.next());
  EXPECT_EQ(reader.op(), 6u);
  EXPECT_TRUE(reader.operands().empty());
  EXPECT_TRUE(reader.operands().first().isNull());
  EXPECT_TRUE(reader.operands().last().isNull());
  EXPECT_FALSE(reader.operands().toMap().isNull());
  EXPECT_TRUE(FS_Operand(reader.operands().toMap(), 1).isNull());
  ASSERT_TRUE(reader.next());
  EXPECT_EQ(reader.op(), 0x0C18u);
  EXPECT_FALSE(reader.next());  // the number behind the last operator is dropped
}

TEST(DictReader, KeepsTheFirstOperandsAndTheLastOfTooMany) {
  const std::size_t most = QXCommonNS::limits::kMostDictOperands;
  DictBuilder dict;
  for (std::size_t i = 1; i <= most + 10; ++i) dict.number(static_cast<int>(i));
  dict.op(6);
  DictReader reader({dict.str().data(), dict.str().size()});
  ASSERT_TRUE(reader.next());
  const QXValue map = reader.operands().toMap();
  EXPECT_EQ(FS_Operand(map, static_cast<int>(most)).getIntegerValue(), static_cast<int>(most));
  EXPECT_TRUE(FS_Operand(map, static_cast<int>(most) + 1).isNull());
  EXPECT_EQ(reader.operands().last().getIntegerValue(), static_cast<int>(most) + 10);
}

TEST(Operand, NumbersOutsideAreNull) {
  const QXValue map = emptyMap();
  for (int n : {-1, 0, 1, 100000}) EXPECT_TRUE(FS_Operand(map, n).isNull()) << n;
  EXPECT_TRUE(FS_Operand(QXValue(5), 1).isNull());
}

}  // namespace
}  // namespace QXFontService_NS::cff
