#include "qxfontservice/log_font.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "qxfontservice/enum_log_font_ex.h"
#include "qxfontservice/new_text_metric_ex.h"

namespace QXFontService_NS {
namespace {

FS_LogFont logFont(const char16_t* name, int weight = 400, bool italic = false) {
  FS_LogFont font;
  font.setFaceName(name);
  font.setWeight(weight);
  font.setItalic(italic);
  return font;
}

TEST(LogFont, ByDefaultIs400UprightWithoutAName) {
  const FS_LogFont font;
  EXPECT_EQ(font.getWeight(), 400);
  EXPECT_FALSE(font.isItalic());
  EXPECT_TRUE(font.getFaceName().isEmpty());
}

TEST(LogFont, OrderIsNameThenWeightThenItalic) {
  const FS_LogFont ordered[] = {logFont(u"A", 900, true), logFont(u"B", 100, true),
                                logFont(u"B", 400), logFont(u"B", 400, true), logFont(u"B", 700)};
  for (std::size_t i = 0; i < std::size(ordered); ++i)
    for (std::size_t k = 0; k < std::size(ordered); ++k)
      EXPECT_EQ(ordered[i] < ordered[k], i < k) << i << " " << k;
}

TEST(LogFont, CaseCountsInTheOrder) {
  EXPECT_TRUE(logFont(u"A") < logFont(u"a"));
  EXPECT_TRUE(logFont(u"Z") < logFont(u"a"));
  EXPECT_FALSE(logFont(u"a") < logFont(u"A"));
}

TEST(LogFont, NamesAreComparedByCodeUnits) {
  EXPECT_TRUE(logFont(u"\U0001F600") < logFont(u"\uFB01"));  // 0xD83D before 0xFB01
  EXPECT_TRUE(logFont(u"A") < logFont(u"AA"));
  EXPECT_FALSE(logFont(u"A", 400) < logFont(u"A", 400));
}

TEST(EnumLogFontEx, ByDefaultIsAnEmptyLogFont) {
  const FS_EnumLogFontEx font;
  EXPECT_EQ(font.getWeight(), 400);
  EXPECT_FALSE(font.isItalic());
  EXPECT_TRUE(font.getFaceName().isEmpty());
  EXPECT_TRUE(font.getFullName().isEmpty());
  EXPECT_EQ(font.getFontFileType(), 0);
  EXPECT_EQ(font.getEmbedStatus(), 0);
  EXPECT_EQ(font.getFontFlags(), 0);
}

TEST(EnumLogFontEx, FromALogFontAddsNothing) {
  const FS_EnumLogFontEx font(logFont(u"Name", 700, true));
  EXPECT_EQ(font.getWeight(), 700);
  EXPECT_TRUE(font.isItalic());
  EXPECT_TRUE(font.getFaceName() == u"Name");
  EXPECT_TRUE(font.getFullName().isEmpty());
  EXPECT_EQ(font.getFontFileType(), 0);
  EXPECT_EQ(font.getEmbedStatus(), 0);
  EXPECT_EQ(font.getFontFlags(), 0);
}

TEST(EnumLogFontEx, CopiesAllFields) {
  FS_EnumLogFontEx font(logFont(u"Name", 700, true));
  font.setFullName(u"Full Name");
  font.setFontFileType(5);
  font.setEmbedStatus(2);
  font.setFontFlags(24);
  FS_EnumLogFontEx copy;
  copy = font;
  EXPECT_TRUE(copy.getFaceName() == u"Name");
  EXPECT_TRUE(copy.getFullName() == u"Full Name");
  EXPECT_EQ(copy.getFontFileType(), 5);
  EXPECT_EQ(copy.getEmbedStatus(), 2);
  EXPECT_EQ(copy.getFontFlags(), 24);
}

TEST(PublicRecords, HaveNoVirtualOperation) {
  EXPECT_FALSE(std::is_polymorphic_v<FS_LogFont>);
  EXPECT_FALSE(std::is_polymorphic_v<FS_EnumLogFontEx>);
  EXPECT_FALSE(std::is_polymorphic_v<FS_NewTextMetricEx>);
}

}  // namespace
}  // namespace QXFontService_NS
