#include "layout/context/lookup_flag.h"

#include <gtest/gtest.h>

#include "layout/test_font.h"
#include "support/class_def_builder.h"

namespace QXFontService_NS::layout {
namespace {

constexpr unsigned short kGlyph = 5;

TEST(LookupFlag, IgnoresTheClassesOfItsBits) {
  const qxtest::TestFont font;
  const struct {
    unsigned flag;
    GlyphClassDef cls;
    bool skipped;
  } cases[] = {{0, GCD_MARK, false},       {2, GCD_BASE, true},       {2, GCD_LIGATURE, false},
               {2, GCD_MARK, false},       {4, GCD_LIGATURE, true},   {4, GCD_BASE, false},
               {8, GCD_MARK, true},        {8, GCD_COMPONENT, false}, {14, GCD_COMPONENT, false},
               {14, GCD_BASE, true},       {0xFE, GCD_NONE, false},   {0xFE, GCD_NO_TABLE, false},
               {0xFE, GCD_IGNORED, false}, {1, GCD_MARK, false},      {1, GCD_BASE, false},
               {0x10, GCD_MARK, false},    {0xE0, GCD_MARK, false}};
  for (const auto& c : cases)
    EXPECT_EQ(isSkipped(font, c.flag, {kGlyph, c.cls}), c.skipped) << c.flag << " " << c.cls;
}

// Glyph 5 is a mark to the font; what the host says counts.
TEST(LookupFlag, TakesTheClassOfTheHostNotOfTheFont) {
  qxtest::TestFont font;
  const std::string gdef = qxtest::gdefTable(qxtest::classDef(kGlyph, {3}));
  readGDEF(font, qxtest::viewOf(gdef));
  EXPECT_FALSE(isSkipped(font, kIgnoreMarks, {kGlyph, GCD_BASE}));
  EXPECT_TRUE(isSkipped(font, kIgnoreMarks, {900, GCD_MARK}));
}

TEST(LookupFlag, MarkAttachmentTypeSkipsOthers) {
  qxtest::TestFont font;
  const std::string gdef = qxtest::gdefTable("", qxtest::classDef(kGlyph, {1, 2}));
  readGDEF(font, qxtest::viewOf(gdef));
  const struct {
    unsigned flag;
    unsigned short glyph;
    GlyphClassDef cls;
    bool skipped;
  } cases[] = {{0x0100, 5, GCD_MARK, false}, {0x0100, 6, GCD_MARK, true},
               {0x0200, 6, GCD_MARK, false}, {0x0200, 6, GCD_BASE, false},
               {0x0100, 6, GCD_BASE, true},  // a base that has an attachment class
               {0x0100, 7, GCD_MARK, true},  // no entry: marks alone
               {0x0100, 7, GCD_BASE, false}, {0x0102, 5, GCD_BASE, true},
               {0x0108, 5, GCD_MARK, true}};
  for (const auto& c : cases)
    EXPECT_EQ(isSkipped(font, c.flag, {c.glyph, c.cls}), c.skipped)
        << c.flag << " " << c.glyph << " " << c.cls;
}

TEST(LookupFlag, MarkAttachmentTypeWithoutItsTableSkipsEverything) {
  const qxtest::TestFont font;
  for (const GlyphClassDef cls : {GCD_BASE, GCD_MARK, GCD_NONE, GCD_NO_TABLE})
    EXPECT_TRUE(isSkipped(font, 0x0100, {kGlyph, cls}));
}

}  // namespace
}  // namespace QXFontService_NS::layout
