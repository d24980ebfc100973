#include "qxcommon/value.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

namespace QXCommonNS {
namespace {

QXValue string(const char16_t* text) {
  return QXValue(UnicodeString(text), QXUNIT_NONE);
}

TEST(QXValue, HasATagForEachKind) {
  EXPECT_EQ(QXValue().getTag(), 0u);
  EXPECT_EQ(QXValue(5).getTag(), 1u);
  EXPECT_EQ(QXValue(5.0).getTag(), 2u);
  EXPECT_EQ(QXValue(5.0f).getTag(), 2u);
  EXPECT_EQ(QXValue(QXNAME_YES).getTag(), 3u);
  EXPECT_EQ(string(u"5").getTag(), 4u) << "a text is not parsed";
  QXValue dictionary;
  dictionary.setNamedItem(QXName(u"key"), 1);
  EXPECT_EQ(dictionary.getTag(), 5u);
}

TEST(QXValue, IsNullOnlyByDefault) {
  EXPECT_TRUE(QXValue().isNull());
  EXPECT_TRUE(QXValue::NULL_VALUE.isNull());
  EXPECT_FALSE(QXValue(0).isNull());
  EXPECT_FALSE(string(u"").isNull());
  EXPECT_TRUE(QXValue(1).isInteger());
  EXPECT_TRUE(QXValue(1.0).isReal());
  EXPECT_TRUE(QXValue(QXNAME_TRUE).isName());
  EXPECT_FALSE(QXValue(1).isReal());
}

TEST(QXValue, HoldsRealsAsDoubles) {
  const double fixed = 1000 + 65535.0 / 65536;
  EXPECT_EQ(QXValue(fixed).getIntegerValue(), 1000) << "a float would round up to 1001";
  EXPECT_EQ(QXValue(fixed).getDoubleValue(), fixed);
  EXPECT_EQ(QXValue(fixed).getRealValue(QXUNIT_NONE), static_cast<float>(fixed));
}

TEST(QXValue, GivesIntegersCutAndClamped) {
  EXPECT_EQ(QXValue(-12.5).getIntegerValue(), -12);
  EXPECT_EQ(QXValue(1e10).getIntegerValue(), INT_MAX);
  EXPECT_EQ(QXValue(-1e10).getIntegerValue(), INT_MIN);
  EXPECT_EQ(QXValue(INT_MIN).getIntegerValue(), INT_MIN);
}

TEST(QXValue, WhatIsNoNumberCountsAsZero) {
  QXValue dictionary;
  dictionary.setNamedItem(QXName(u"key"), 1);
  for (const QXValue& value : {QXValue(), QXValue(QXNAME_YES), string(u"7"), dictionary}) {
    EXPECT_EQ(value.getIntegerValue(), 0);
    EXPECT_EQ(value.getRealValue(QXUNIT_NONE), 0.0f);
    EXPECT_EQ(value.getDoubleValue(), 0.0);
  }
}

TEST(QXValue, GivesItsName) {
  EXPECT_EQ(QXValue(QXNAME_YES).getNameValue(), QXNAME_YES);
  EXPECT_EQ(QXValue(1628).getNameValue(), QXNAME_EMPTY);
}

TEST(QXValue, TurnsIntoText) {
  EXPECT_EQ(QXValue(-42).toString(), UnicodeString(u"-42"));
  EXPECT_EQ(QXValue(.039625).toString(), UnicodeString(u"0.039625"));
  EXPECT_EQ(QXValue(5.0).toString(), UnicodeString(u"5"));
  EXPECT_EQ(QXValue(QXNAME_YES).toString(), UnicodeString(u"yes"));
  EXPECT_EQ(string(u"text").toString(), UnicodeString(u"text"));
  EXPECT_TRUE(QXValue().toString().isEmpty());
  QXValue dictionary;
  dictionary.setNamedItem(QXName(u"key"), 1);
  EXPECT_TRUE(dictionary.toString().isEmpty());
}

TEST(QXValue, IsQuotedWithInnerMarksDoubled) {
  EXPECT_EQ(string(u"x").toQuotedString(QXUtil::QUOTE_DOUBLE), UnicodeString(u"\"x\""));
  EXPECT_EQ(string(u"a\"b\"").toQuotedString(QXUtil::QUOTE_DOUBLE),
            UnicodeString(u"\"a\"\"b\"\"\""));
  EXPECT_EQ(string(u"").toQuotedString(QXUtil::QUOTE_DOUBLE), UnicodeString(u"\"\""));
  EXPECT_EQ(string(u"it's").toQuotedString(QXUtil::QUOTE_DOUBLE), UnicodeString(u"\"it's\""));
  EXPECT_EQ(QXUtil::QUOTE_DOUBLE, 7);
}

TEST(QXValue, CopiesAndMoves) {
  QXValue original = string(u"shared");
  const QXValue copy(original);
  const QXValue moved(std::move(original));
  EXPECT_EQ(copy.toString(), UnicodeString(u"shared"));
  EXPECT_EQ(moved.toString(), UnicodeString(u"shared"));
  QXValue assigned(3);
  assigned = copy;
  EXPECT_EQ(assigned.toString(), UnicodeString(u"shared"));
  const QXValue& same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.toString(), UnicodeString(u"shared"));
  assigned = QXValue(4);
  EXPECT_EQ(assigned.getIntegerValue(), 4);
}

TEST(QXValue, KeepsItsTextWhenTheOriginalIsGone) {
  char16_t scratch[] = u"text";
  const QXValue value(UnicodeString(true, scratch, -1), QXUNIT_NONE);
  scratch[0] = u'n';
  EXPECT_EQ(value.toString(), UnicodeString(u"text"));
}

TEST(QXValueDictionary, GivesItemsByName) {
  QXValue value;
  value.setNamedItem(QXName(u"width"), 500);
  value.setNamedItem(QXName(u"Notice"), string(u"text"));
  EXPECT_EQ(value.getNamedItem(QXName(u"width")).getIntegerValue(), 500);
  EXPECT_EQ(value.getNamedItem(UnicodeString(u"Notice")).toString(), UnicodeString(u"text"));
  value.setNamedItem(QXName(u"width"), 600);
  EXPECT_EQ(value.getNamedItem(QXName(u"width")).getIntegerValue(), 600);
}

TEST(QXValueDictionary, GivesTheNullValueForAMissingItem) {
  QXValue value;
  EXPECT_EQ(&value.getNamedItem(QXName(u"missing")), &QXValue::NULL_VALUE);
  value.setNamedItem(QXName(u"width"), 500);
  EXPECT_EQ(&value.getNamedItem(QXName(u"missing")), &QXValue::NULL_VALUE);
  EXPECT_EQ(&QXValue(5).getNamedItem(QXName(u"missing")), &QXValue::NULL_VALUE);
}

TEST(QXValueDictionary, ReplacesAnyOtherKind) {
  QXValue value = string(u"text");
  value.setNamedItem(QXName(u"width"), 500);
  EXPECT_EQ(value.getTag(), QXValue::TAG_DICTIONARY);
  EXPECT_EQ(value.getNamedItem(QXName(u"width")).getIntegerValue(), 500);
}

TEST(QXValueDictionary, ACopyIsNotChangedThroughTheOther) {
  QXValue one;
  one.setNamedItem(QXName(u"width"), 1);
  const QXValue two = one;
  one.setNamedItem(QXName(u"width"), 2);
  one.setNamedItem(QXName(u"height"), 3);
  EXPECT_EQ(two.getNamedItem(QXName(u"width")).getIntegerValue(), 1);
  EXPECT_TRUE(two.getNamedItem(QXName(u"height")).isNull());
}

TEST(QXValueDictionary, TakesItselfAndItsOwnItems) {
  QXValue value;
  value.setNamedItem(QXName(u"a"), 1);
  value.setNamedItem(QXName(u"self"), value);
  EXPECT_EQ(value.getNamedItem(QXName(u"self")).getNamedItem(QXName(u"a")).getIntegerValue(), 1);
  EXPECT_TRUE(value.getNamedItem(QXName(u"self")).getNamedItem(QXName(u"self")).isNull());
  value.setNamedItem(QXName(u"a"), value.getNamedItem(QXName(u"self")));
  EXPECT_EQ(value.getNamedItem(QXName(u"a")).getNamedItem(QXName(u"a")).getIntegerValue(), 1);
}

TEST(QXValueArithmetic, OfIntegersStaysInteger) {
  EXPECT_EQ((QXValue(2) + QXValue(3)).getTag(), QXValue::TAG_INTEGER);
  EXPECT_EQ((QXValue(2) + QXValue(3)).getIntegerValue(), 5);
  EXPECT_EQ((QXValue(2) - QXValue(3)).getIntegerValue(), -1);
  EXPECT_EQ((-QXValue(2)).getIntegerValue(), -2);
}

TEST(QXValueArithmetic, KeepsFractions) {
  const QXValue sum = QXValue(1.5) + QXValue(1.5);
  EXPECT_EQ(sum.getTag(), QXValue::TAG_REAL);
  EXPECT_EQ(sum.getIntegerValue(), 3);
  EXPECT_EQ((QXValue(1) + QXValue(0.5)).getDoubleValue(), 1.5);
  EXPECT_EQ((QXValue(0.5) - QXValue(1)).getDoubleValue(), -0.5);
  EXPECT_EQ((-QXValue(0.5)).getDoubleValue(), -0.5);
  QXValue running(1);
  running += QXValue(0.25);
  running += running;
  EXPECT_EQ(running.getDoubleValue(), 2.5);
}

TEST(QXValueArithmetic, WrapsAt32Bits) {
  EXPECT_EQ((QXValue(INT_MAX) + QXValue(1)).getIntegerValue(), INT_MIN);
  EXPECT_EQ((QXValue(INT_MIN) - QXValue(1)).getIntegerValue(), INT_MAX);
  EXPECT_EQ((-QXValue(INT_MIN)).getIntegerValue(), INT_MIN);
}

TEST(QXValueArithmetic, CountsWhatIsNoNumberAsTheIntegerZero) {
  EXPECT_EQ((QXValue() + QXValue(3)).getTag(), QXValue::TAG_INTEGER);
  EXPECT_EQ((QXValue() + QXValue(3)).getIntegerValue(), 3);
  EXPECT_EQ((string(u"9") - QXValue(0.5)).getDoubleValue(), -0.5);
  EXPECT_EQ((-QXValue(QXNAME_YES)).getIntegerValue(), 0);
}

TEST(QXValueArithmetic, Compares) {
  EXPECT_TRUE(QXValue(1) < QXValue(1.5));
  EXPECT_FALSE(QXValue(1.5) < QXValue(1));
  EXPECT_FALSE(QXValue(1) < QXValue(1));
  EXPECT_TRUE(QXValue(-1) < QXValue());
  EXPECT_FALSE(QXValue(1) != QXValue(1.0));
  EXPECT_TRUE(QXValue(1) != QXValue(2));
  EXPECT_TRUE(QXValue(INT_MAX) != QXValue(INT_MAX - 1)) << "a float would not tell them apart";
}

TEST(QXValueArithmetic, TellsKindsAndContentsApart) {
  EXPECT_TRUE(QXValue() == QXValue::NULL_VALUE);
  EXPECT_TRUE(QXValue(0) != QXValue());
  EXPECT_TRUE(string(u"1") != QXValue(1));
  EXPECT_TRUE(string(u"yes") != QXValue(QXNAME_YES));
  EXPECT_TRUE(QXValue(QXNAME_TRUE) != QXValue(QXNAME_YES));
  EXPECT_TRUE(string(u"a") == string(u"a"));
  EXPECT_TRUE(string(u"a") != string(u"b"));
  QXValue one;
  QXValue two;
  one.setNamedItem(QXName(u"a"), 1);
  two.setNamedItem(QXName(u"a"), 1);
  EXPECT_TRUE(one == two);
  two.setNamedItem(QXName(u"a"), 2);
  EXPECT_TRUE(one != two);
}

TEST(QXValue, IsReadOnManyThreads) {
  QXValue value;
  value.setNamedItem(QXName(u"text"), string(u"shared"));
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([value] {
      for (int round = 0; round < 1000; ++round) {
        QXValue own = value;
        own.setNamedItem(QXName(u"round"), round);
        ASSERT_EQ(value.getNamedItem(QXName(u"text")).toString(), UnicodeString(u"shared"));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(value.getNamedItem(QXName(u"round")).isNull());
}

}  // namespace
}  // namespace QXCommonNS
