#include "layout/table/gdef.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"
#include "support/class_def_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::layout {
namespace {

using qxtest::classDef;
using qxtest::gdefTable;
using qxtest::viewOf;

TEST(Gdef, HoldsGlyphAndMarkAttachmentClasses) {
  qxtest::TestFont font(100);
  const GDEFRead read = readGDEF(font, viewOf(gdefTable(classDef(5, {1, 3, 4}), classDef(6, {2}))));
  EXPECT_TRUE(read.glyphClasses);
  EXPECT_TRUE(read.markAttachClasses);
  EXPECT_TRUE(font.gdefLoaded);
  EXPECT_EQ(font.glyphClass(5), GCD_BASE);
  EXPECT_EQ(font.glyphClass(6), GCD_MARK);
  EXPECT_EQ(font.glyphClass(8), GCD_NONE);
  EXPECT_EQ(font.markAttachClass(6), 2);
  EXPECT_EQ(font.markAttachClass(5), -1);
}

TEST(Gdef, GlyphFFFFHasNoClassEvenWhereTheTableListsIt) {
  qxtest::TestFont font(0x10000);
  const std::string all = qxtest::classDefOfRanges({{0, 0xFFFF, 3}});
  readGDEF(font, viewOf(gdefTable(all, all)));
  EXPECT_EQ(font.glyphClass(0xFFFE), GCD_MARK);
  EXPECT_EQ(font.glyphClass(0xFFFF), GCD_NONE);
  EXPECT_EQ(font.markAttachClass(0xFFFF), -1);
}

// A font of few glyphs holds its classes side by side, one of many glyphs searches the table.
TEST(Gdef, TheClassesAreThoseOfTheTableHoweverManyGlyphsTheFontHas) {
  const std::string table = qxtest::classDefOfRanges(
      {{10, 20, 1}, {40, 50, 3}, {30, 35, 2}, {60, 60, 200}, {61, 61, 0xFFFF}, {99, 120, 4}});
  qxtest::TestFont few(100);
  qxtest::TestFont many(0xFFFF);
  readGDEF(few, viewOf(gdefTable(table, "")));
  readGDEF(many, viewOf(gdefTable(table, "")));
  for (unsigned glyph = 0; glyph <= 0xFFFF; ++glyph) {
    const auto id = static_cast<unsigned short>(glyph);
    ASSERT_EQ(few.glyphClass(id), many.glyphClass(id)) << glyph;
  }
  EXPECT_EQ(few.glyphClass(45), GCD_MARK);
  EXPECT_EQ(static_cast<int>(few.glyphClass(60)), 200);
  EXPECT_EQ(few.glyphClass(100), GCD_COMPONENT);
}

TEST(Gdef, WithoutClassTablesTheAnswerIsMinusThree) {
  qxtest::TestFont font;
  EXPECT_EQ(font.glyphClass(5), GCD_NO_TABLE);
  EXPECT_EQ(font.markAttachClass(5), -3);
  EXPECT_EQ(font.glyphClass(0xFFFF), GCD_NO_TABLE);
  const GDEFRead read = readGDEF(font, viewOf(gdefTable("", "")));
  EXPECT_TRUE(read.glyphClasses && read.markAttachClasses);
  EXPECT_TRUE(font.gdefLoaded);
  EXPECT_EQ(font.glyphClass(5), GCD_NO_TABLE);
}

TEST(Gdef, GlyphClassesOutOfRangeFailAndEndTheRead) {
  qxtest::TestFont font(100);
  const GDEFRead read = readGDEF(font, viewOf(gdefTable(classDef(99, {1, 1}), classDef(5, {2}))));
  EXPECT_FALSE(read.glyphClasses);
  EXPECT_TRUE(read.markAttachClasses);
  EXPECT_FALSE(font.gdefLoaded);
  EXPECT_EQ(font.glyphClass(99), GCD_NONE);  // an empty table is held
  EXPECT_EQ(font.markAttachClass(5), -3);
}

TEST(Gdef, GlyphClassesOfUnknownFormatFail) {
  qxtest::TestFont font(100);
  std::string classes = classDef(5, {1});
  classes[1] = 9;
  EXPECT_FALSE(readGDEF(font, viewOf(gdefTable(classes))).glyphClasses);
  EXPECT_EQ(font.glyphClass(5), GCD_NO_TABLE);
}

TEST(Gdef, FailedMarkAttachmentClassesAreDroppedAndTheRestStays) {
  qxtest::TestFont font(100);
  const GDEFRead read = readGDEF(font, viewOf(gdefTable(classDef(5, {1}), classDef(99, {1, 1}))));
  EXPECT_TRUE(read.glyphClasses);
  EXPECT_FALSE(read.markAttachClasses);
  EXPECT_TRUE(font.gdefLoaded);
  EXPECT_EQ(font.glyphClass(5), GCD_BASE);
  EXPECT_EQ(font.markAttachClass(99), -3);
}

TEST(Gdef, TooShortForMarkAttachmentClassesHasNone) {
  qxtest::TestFont font(100);
  const std::string bytes("\0\1\0\0\0\0\0\0\0\0", 10);
  const GDEFRead read = readGDEF(font, viewOf(bytes));
  EXPECT_TRUE(read.glyphClasses && read.markAttachClasses);
  EXPECT_EQ(font.markAttachClassDef, nullptr);
}

TEST(Gdef, SurvivesDamage) {
  qxtest::forEachDamage(gdefTable(classDef(5, {1}), qxtest::classDefOfRanges({{6, 7, 2}})),
                        [](const std::string& damaged) {
                          qxtest::TestFont font(100);
                          const GDEFRead read = readGDEF(font, viewOf(damaged));
                          EXPECT_EQ(font.gdefLoaded, read.glyphClasses);
                          EXPECT_EQ(font.glyphClass(5) == GCD_NO_TABLE, !font.glyphClassDef);
                          EXPECT_GE(font.markAttachClass(6), -3);
                        });
}

}  // namespace
}  // namespace QXFontService_NS::layout
