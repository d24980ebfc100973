#include <gtest/gtest.h>

#include "service/font_info_access.h"
#include "service/service_test.h"

namespace QXFontService_NS {
namespace {

using qxtest::LoadedFont;

class FontInfoEudc : public qxtest::ServiceTest {
 protected:
  FontInfoEudc() : font(addToMain(new LoadedFont(u"Family"))) {
    FontInfoAccess::set(info, &font, 0);
  }

  /// A font of the pool with a glyph for one character.
  LoadedFont& eudcFont(const char16_t* name, int code, unsigned short glyph) {
    LoadedFont& result = addToMain(new LoadedFont(name, 700, true));
    result.eudcCode = code;
    result.eudcGlyph = glyph;
    return result;
  }
  UnicodeString nameFor(int code) {
    UnicodeString name;
    int weight = 0;
    bool italic = false;
    return info.getEudcFontName(code, name, weight, italic) ? name : UnicodeString(u"none");
  }

  LoadedFont& font;
  FS_FontInfo info;
};

TEST_F(FontInfoEudc, WithoutAConfiguredRangeItIsThePrivateUseArea) {
  EXPECT_TRUE(FS_FontInfo::isEUDC(0xE000));
  EXPECT_TRUE(FS_FontInfo::isEUDC(0xF8FF));
  EXPECT_FALSE(FS_FontInfo::isEUDC(0xDFFF));
  EXPECT_FALSE(FS_FontInfo::isEUDC(0xF900));
}

TEST_F(FontInfoEudc, NumbersOutsideTheBasicPlaneAreNone) {
  for (const int code : {-1, -2147483647 - 1, 0x10000, 0x1E000, 2147483647})
    EXPECT_FALSE(FS_FontInfo::isEUDC(code)) << code;
}

TEST_F(FontInfoEudc, TheLinkedFontIsAskedFirst) {
  font.link = {&eudcFont(u"Linked", 0xE000, 5), 0};
  registry().services().setEudcDefault(false, {&eudcFont(u"Default", 0xE000, 6), 0});
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 5);
  EXPECT_TRUE(nameFor(0xE000) == u"Linked-PS");
}

TEST_F(FontInfoEudc, WhatTheLinkLacksComesFromTheDefault) {
  font.link = {&eudcFont(u"Linked", 0xE000, 5), 0};
  registry().services().setEudcDefault(false, {&eudcFont(u"Default", 0xE001, 6), 0});
  EXPECT_EQ(info.getEudcGlyphID(0xE001), 6);
  EXPECT_TRUE(nameFor(0xE001) == u"Default-PS");
  EXPECT_EQ(info.getEudcGlyphID(0xE002), 0xFFFF);
  EXPECT_TRUE(nameFor(0xE002) == u"none");
}

TEST_F(FontInfoEudc, AVerticalFaceTakesTheVerticalDefaultAndNoOther) {
  registry().services().setEudcDefault(false, {&eudcFont(u"Default", 0xE000, 6), 0});
  font.vertical = true;
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 0xFFFF);
  registry().services().setEudcDefault(true, {&eudcFont(u"Vertical", 0xE000, 7), 0});
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 7);
  EXPECT_TRUE(nameFor(0xE000) == u"Vertical-PS");
}

TEST_F(FontInfoEudc, OutsideTheRangeNoFontIsAsked) {
  font.link = {&eudcFont(u"Linked", 'a', 5), 0};
  EXPECT_EQ(info.getEudcGlyphID('a'), 0xFFFF);
  EXPECT_TRUE(nameFor('a') == u"none");
}

TEST_F(FontInfoEudc, GlyphZeroIsAnAnswer) {
  font.link = {&eudcFont(u"Linked", 0xE000, 0), 0};
  EXPECT_EQ(info.getEudcGlyphID(0xE000), 0);
}

TEST_F(FontInfoEudc, TellsTheStyleOfTheFontItChose) {
  font.link = {&eudcFont(u"Linked", 0xE000, 5), 0};
  UnicodeString name;
  int weight = 0;
  bool italic = false;
  ASSERT_TRUE(info.getEudcFontName(0xE000, name, weight, italic));
  EXPECT_EQ(weight, 700);
  EXPECT_TRUE(italic);
}

TEST_F(FontInfoEudc, OnNoFontTheOutputsStay) {
  UnicodeString name(u"kept");
  int weight = 7;
  bool italic = true;
  EXPECT_FALSE(info.getEudcFontName(0xE000, name, weight, italic));
  EXPECT_FALSE(FS_FontInfo().getEudcFontName(0xE000, name, weight, italic));
  EXPECT_TRUE(name == u"kept");
  EXPECT_EQ(weight, 7);
  EXPECT_TRUE(italic);
  EXPECT_EQ(FS_FontInfo().getEudcGlyphID(0xE000), 0xFFFF);
}

}  // namespace
}  // namespace QXFontService_NS
