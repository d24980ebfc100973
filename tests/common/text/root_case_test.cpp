#include "common/text/root_case.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

namespace QXCommonNS {
namespace {

using icu::UnicodeString;

TEST(RootCase, ChangesAsciiAsIcuDoes) {
  UnicodeString all;
  for (char16_t unit = 0; unit < 0x80; ++unit) all.append(unit);
  EXPECT_EQ(lowerCase(all), UnicodeString(all).toLower(icu::Locale::getRoot()));
  EXPECT_EQ(upperCase(all), UnicodeString(all).toUpper(icu::Locale::getRoot()));
}

TEST(RootCase, LeavesTheCallersTextAlone) {
  const UnicodeString text(u"DejaVu Sans");
  EXPECT_EQ(lowerCase(text), UnicodeString(u"dejavu sans"));
  EXPECT_EQ(upperCase(text), UnicodeString(u"DEJAVU SANS"));
  EXPECT_EQ(text, UnicodeString(u"DejaVu Sans"));
}

TEST(RootCase, AsksIcuAsSoonAsOneUnitIsNotAscii) {
  EXPECT_EQ(upperCase(UnicodeString(u"Stra\u00DFe")), UnicodeString(u"STRASSE"));
  EXPECT_EQ(lowerCase(UnicodeString(u"\u00C4B")), UnicodeString(u"\u00E4b"));
  EXPECT_EQ(lowerCase(UnicodeString(u"I\u0130")), UnicodeString(u"ii\u0307"));
  EXPECT_EQ(upperCase(UnicodeString(u"\U00010428x")), UnicodeString(u"\U00010400X"));
}

TEST(RootCase, OfAnEmptyText) {
  EXPECT_TRUE(lowerCase(UnicodeString()).isEmpty());
  EXPECT_TRUE(upperCase(UnicodeString()).isEmpty());
}

}  // namespace
}  // namespace QXCommonNS
