#include "font/contract/font_folder.h"

#include <gtest/gtest.h>

namespace QXFontService_NS {
namespace {

TEST(FontFolder, ItsTextEndsInTheSeparator) {
  EXPECT_TRUE(FS_FontFolder(u"/fonts", 0, false).getText() == u"/fonts/");
  EXPECT_TRUE(FS_FontFolder(u"/fonts/", 0, false).getText() == u"/fonts/");
}

TEST(FontFolder, KeepsItsArguments) {
  const FS_FontFolder folder(u"/fonts", 7, true);
  EXPECT_EQ(folder.reserved, 7);
  EXPECT_EQ(folder.recursive, 1);
  EXPECT_EQ(folder.skipScan, 0);
  EXPECT_EQ(FS_FontFolder(u"/fonts", 0, false).recursive, 0);
}

TEST(FontFolder, OptionsHaveTheirDefaults) {
  const FS_FontFileOptions options;
  EXPECT_TRUE(options.glyphList.isEmpty());
  EXPECT_FALSE(options.skipGlyphnameMapping);
  EXPECT_FALSE(options.exclude);
  EXPECT_FALSE(options.useZeroGlyphId);
  EXPECT_EQ(options.fontSizeAdjust, 1.0F);
  EXPECT_EQ(options.baselineAdjust, 0.0F);
  EXPECT_EQ(options.range, nullptr);
}

TEST(FontFolder, FindsTheOptionsOfAFileInAnyCase) {
  FS_FontFolder folder(u"/fonts", 0, false);
  folder.fileOptions[u"a.ttf"].exclude = true;
  ASSERT_NE(folder.findOptions(u"A.TTF"), nullptr);
  EXPECT_TRUE(folder.findOptions(u"A.TTF")->exclude);
  EXPECT_EQ(folder.findOptions(u"b.ttf"), nullptr);
  EXPECT_EQ(folder.findOptions(u""), nullptr);
}

TEST(FontFolder, AFileNameIsOrderedByItsLowerCaseForm) {
  EXPECT_TRUE(makeFontFileName(u"B.ttf").lowerName == u"b.ttf");
  EXPECT_TRUE(makeFontFileName(u"B.ttf").name == u"B.ttf");
  EXPECT_TRUE(makeFontFileName(u"a.ttf") < makeFontFileName(u"B.ttf"));
  EXPECT_FALSE(makeFontFileName(u"A.ttf") < makeFontFileName(u"a.ttf"));
  EXPECT_FALSE(makeFontFileName(u"a.ttf") < makeFontFileName(u"A.ttf"));
}

TEST(FontFolder, AnAliasHasNothingGivenAndIsOrderedByItsNameAlone) {
  FS_FontAlias plain;
  EXPECT_EQ(plain.weight, -1);
  EXPECT_EQ(plain.italic, -1);
  EXPECT_EQ(plain.stretch, 0);
  FS_FontAlias bold;
  bold.weight = 700;
  EXPECT_FALSE(plain < bold);
  EXPECT_FALSE(bold < plain);
  bold.familyName = u"B";
  EXPECT_TRUE(plain < bold);
}

}  // namespace
}  // namespace QXFontService_NS
