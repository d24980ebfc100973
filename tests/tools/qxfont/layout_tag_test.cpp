#include "qxfont/shape/layout_tag.h"

#include <gtest/gtest.h>

#include "qxfont/cli/status.h"
#include "qxfont/shape/script_tags.h"

namespace qxfont {
namespace {

TEST(LayoutTag, isFilledUpWithSpaces) {
  EXPECT_EQ(layoutTag("arab"), 0x61726162u);
  EXPECT_EQ(layoutTag("lao"), 0x6C616F20u);
  EXPECT_EQ(tagText(layoutTag("yi")), "yi  ");
  EXPECT_EQ(tagText(0x61000A7Fu), "a???");
}

TEST(LayoutTag, isReadFromACommandLine) {
  EXPECT_EQ(parseTag("DFLT", "--script"), layoutTag("DFLT"));
  EXPECT_EQ(parseTags("liga,ss01", "--features"),
            (std::vector<LayoutTag>{layoutTag("liga"), layoutTag("ss01")}));
}

TEST(LayoutTag, wrongOnesAreRefused) {
  for (const char* text : {"", "latin", "a\nb", "\xC3\xA9"})
    EXPECT_THROW(parseTag(text, "--script"), ToolError) << text;
  for (const char* text : {",", "liga,", ",liga", "liga,,kern"})
    EXPECT_THROW(parseTags(text, "--features"), ToolError) << text;
}

TEST(ScriptTags, bestTagFirst) {
  using Tags = std::vector<LayoutTag>;
  const LayoutTag dflt = kDefaultScript;
  const LayoutTag latn = layoutTag("latn");
  EXPECT_EQ(scriptTags(USCRIPT_GREEK), (Tags{layoutTag("grek"), dflt, latn}));
  EXPECT_EQ(scriptTags(USCRIPT_DEVANAGARI),
            (Tags{layoutTag("dev2"), layoutTag("deva"), dflt, latn}));
  EXPECT_EQ(scriptTags(USCRIPT_HIRAGANA), (Tags{layoutTag("kana"), layoutTag("hira"), dflt, latn}));
  EXPECT_EQ(scriptTags(USCRIPT_LAO).front(), layoutTag("lao "));
  EXPECT_EQ(scriptTags(USCRIPT_COMMON), (Tags{dflt, latn}));
}

}  // namespace
}  // namespace qxfont
