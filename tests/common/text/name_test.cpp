#include "qxcommon/name.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "common/text/name_table.h"

namespace QXCommonNS {
namespace {

// Interned before `main`, in whatever order the linker puts the static objects.
const QXNameEnum kEarlyName = QXName(u"interned before main").getNameEnum();

TEST(QXName, HasFixedNumbersForTheAffirmativeWords) {
  EXPECT_EQ(QXName(u"true").getNameEnum(), 1517);
  EXPECT_EQ(QXName(u"yes").getNameEnum(), 1628);
  EXPECT_EQ(QXNameTable::getSharedNameString(QXNAME_TRUE), UnicodeString(u"true"));
  EXPECT_EQ(QXNameTable::getSharedNameString(QXNAME_YES), UnicodeString(u"yes"));
  EXPECT_NE(QXName(u"True").getNameEnum(), 1517);
  EXPECT_NE(QXName(u"YES").getNameEnum(), 1628);
}

TEST(QXName, OfTheEmptyTextIsZero) {
  EXPECT_EQ(QXName(UnicodeString()).getNameEnum(), 0);
  EXPECT_EQ(QXName().getNameEnum(), QXNAME_EMPTY);
  EXPECT_TRUE(QXNameTable::getSharedNameString(QXNAME_EMPTY).isEmpty());
}

TEST(QXName, IsTheSameForEqualTexts) {
  const QXName one(u"font-folder");
  const QXName same(UnicodeString(u"font-") + UnicodeString(u"folder"));
  const QXName other(u"font-entry");
  EXPECT_TRUE(one == same);
  EXPECT_FALSE(one != same);
  EXPECT_TRUE(one != other);
  EXPECT_TRUE((one < other) != (other < one));
  EXPECT_TRUE(QXName(one.getNameEnum()) == one);
  EXPECT_EQ(QXNameTable::getSharedNameString(one.getNameEnum()), UnicodeString(u"font-folder"));
}

TEST(QXName, NumbersOtherNamesFrom4096UpInOrder) {
  text::NameTable table(10);
  EXPECT_EQ(table.intern(u"first"), 4096);
  EXPECT_EQ(table.intern(u"second"), 4097);
  EXPECT_EQ(table.intern(u"first"), 4096);
  EXPECT_EQ(table.intern(u"yes"), 1628);
  EXPECT_EQ(table.textOf(static_cast<QXNameEnum>(4097)), UnicodeString(u"second"));
}

TEST(QXName, NumbersWithoutANameHaveNoText) {
  for (const int number : {-1, 1, 250, 1516, 1518, 1629, 4095, 0x7FFFFFFF, -0x7FFFFFFF}) {
    EXPECT_TRUE(QXNameTable::getSharedNameString(static_cast<QXNameEnum>(number)).isEmpty())
        << number;
  }
}

TEST(QXName, AFullTableGivesTheEmptyNameAndKeepsTheOthers) {
  text::NameTable table(2);
  EXPECT_EQ(table.intern(u"a"), 4096);
  EXPECT_EQ(table.intern(u"b"), 4097);
  EXPECT_EQ(table.intern(u"c"), QXNAME_EMPTY);
  EXPECT_EQ(table.intern(u"a"), 4096);
  EXPECT_TRUE(table.textOf(static_cast<QXNameEnum>(4098)).isEmpty());
}

TEST(QXName, KeepsItsTextWhenTheOriginalIsGone) {
  const char16_t buffer[] = u"aliased text";
  QXNameEnum number = QXNAME_EMPTY;
  {
    char16_t scratch[sizeof(buffer) / sizeof(char16_t)];
    std::copy(std::begin(buffer), std::end(buffer), scratch);
    number = QXName(UnicodeString(true, scratch, -1)).getNameEnum();
    std::fill(std::begin(scratch), std::end(scratch), u'x');
  }
  EXPECT_EQ(QXNameTable::getSharedNameString(number), UnicodeString(buffer));
}

TEST(QXName, TextsStayInPlaceWhileOthersCome) {
  const QXName name(u"stays in place");
  const UnicodeString* before = &QXNameTable::getSharedNameString(name.getNameEnum());
  for (int i = 0; i < 1000; ++i) {
    const UnicodeString text = UnicodeString(u"comer ").append(static_cast<char16_t>(0x4E00 + i));
    ASSERT_NE(QXName(text).getNameEnum(), QXNAME_EMPTY);
  }
  EXPECT_EQ(&QXNameTable::getSharedNameString(name.getNameEnum()), before);
}

TEST(QXName, ServesStaticObjects) {
  EXPECT_GE(kEarlyName, 4096);
  EXPECT_EQ(QXName(u"interned before main").getNameEnum(), kEarlyName);
}

TEST(QXName, IsInternedOnceByManyThreads) {
  std::vector<std::vector<QXNameEnum>> found(4);
  std::vector<std::thread> threads;
  for (std::vector<QXNameEnum>& names : found) {
    threads.emplace_back([&names] {
      for (int i = 0; i < 500; ++i) {
        const UnicodeString text = UnicodeString(u"shared ").append(static_cast<char16_t>(i + 32));
        const QXNameEnum name = QXName(text).getNameEnum();
        names.push_back(name);
        ASSERT_EQ(QXNameTable::getSharedNameString(name), text);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::vector<QXNameEnum>& names : found) EXPECT_EQ(names, found.front());
}

}  // namespace
}  // namespace QXCommonNS
