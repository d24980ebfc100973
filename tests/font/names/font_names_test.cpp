#include "font/names/font_names.h"

#include <gtest/gtest.h>

namespace QXFontService_NS {
namespace {

constexpr int kFamily = 0;
constexpr int kStyle = 1;
constexpr int kPostScript = 4;

UnicodeString text(const char16_t* value) {
  return UnicodeString(value);
}

FontNames sample() {
  FontNames names;
  names.of(11).set(kStyle, u"Mac style");
  names.of(0x409).set(kFamily, u"English");
  names.of(0x409).set(kPostScript, u"English-PS");
  names.of(0x411).set(kFamily, u"Japanese");
  names.of(0x411).set(kPostScript, u"Japanese-PS");
  return names;
}

TEST(FontNames, DefaultIsTheLanguageThenEnglishThenTheLowest) {
  FontNames names = sample();
  names.chooseDefault(0x411);
  EXPECT_EQ(names.get(0, kFamily), text(u"Japanese"));
  names.chooseDefault(0x412);
  EXPECT_EQ(names.get(0, kFamily), text(u"English"));
  FontNames other;
  other.of(0x40C).set(kFamily, u"French");
  other.of(0x407).set(kFamily, u"German");
  other.chooseDefault(0x411);
  EXPECT_EQ(other.get(0, kFamily), text(u"German"));
  FontNames none;
  none.chooseDefault(0x409);
  EXPECT_TRUE(none.get(0, kFamily).isEmpty());
}

TEST(FontNames, ThePostScriptNameOfTheDefaultIsEnglish) {
  FontNames names = sample();
  names.chooseDefault(0x411);
  EXPECT_EQ(names.get(0, kPostScript), text(u"English-PS"));
  EXPECT_EQ(names.get(0x411, kPostScript), text(u"Japanese-PS"));
  names.of(0x409).set(kPostScript, u"");
  names.chooseDefault(0x411);
  EXPECT_EQ(names.get(0, kPostScript), text(u"Japanese-PS"));
}

TEST(FontNames, ALanguageIsAskedAlone) {
  FontNames names = sample();
  names.chooseDefault(0x409);
  EXPECT_TRUE(names.get(0x412, kFamily).isEmpty());
  EXPECT_TRUE(names.get(0x409, kStyle).isEmpty());
  EXPECT_EQ(names.get(11, kStyle), text(u"Mac style"));
}

TEST(FontNames, LanguageZeroFallsBackToEnglishThenToAll) {
  FontNames names = sample();
  names.of(0x411).set(kFamily, u"");
  names.of(0x411).set(kStyle, u"Japanese style");
  names.chooseDefault(0x411);
  EXPECT_EQ(names.get(0, kFamily), text(u"English"));
  names.of(0x409).set(kFamily, u"");
  EXPECT_TRUE(names.get(0, kFamily).isEmpty());
  names.chooseDefault(0x409);
  EXPECT_EQ(names.get(0, kStyle), text(u"Mac style"));
  EXPECT_TRUE(names.get(0, 9).isEmpty());
}

TEST(FontNames, MacintoshEnglishCannotBeAskedExactly) {
  FontNames names;
  names.of(0).set(kStyle, u"Mac style");
  names.of(0x409).set(kFamily, u"English");
  names.of(0x409).set(kStyle, u"English style");
  names.chooseDefault(0x409);
  EXPECT_EQ(names.get(0, kStyle), text(u"English style"));
}

TEST(FontNames, ANewPostScriptNameLeavesTheLanguages) {
  FontNames names = sample();
  names.chooseDefault(0x411);
  names.setPostScriptName(text(u"New"));
  EXPECT_EQ(names.get(0, kPostScript), text(u"New"));
  EXPECT_EQ(names.get(0x409, kPostScript), text(u"English-PS"));
}

}  // namespace
}  // namespace QXFontService_NS
