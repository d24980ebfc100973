#include "qxfont/typeset/source_text.h"

#include <gtest/gtest.h>

#include <string>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

std::vector<Paragraph> read(const std::string& text) {
  return readSourceText(text, "t.txt", 12);
}

std::vector<std::string> texts(const std::string& text) {
  std::vector<std::string> all;
  for (const Paragraph& paragraph : read(text)) all.push_back(utf8(paragraph.text));
  return all;
}

struct Case {
  const char* what;
  std::string text;
  std::vector<std::string> paragraphs;
};

TEST(SourceText, isCutIntoParagraphs) {
  const Case cases[] = {
      {"nothing", "", {}},
      {"blank lines only", "\n \t\n\n", {}},
      {"one line", "a", {"a"}},
      {"lines are joined by a space", "a b\n  c\n", {"a b c"}},
      {"an empty line ends a paragraph", "a\n\nb", {"a", "b"}},
      {"so does a blank one", "a\n  \nb", {"a", "b"}},
      {"line ends of other systems", "a\r\nb\r\n\r\nc", {"a b", "c"}},
      {"a font line ends a paragraph", "a\n#font Lato\nb", {"a", "b"}},
      {"wide characters are joined by nothing", "吾輩は\n猫", {"吾輩は猫"}},
      {"wide and other ones by a space", "猫\ncat", {"猫 cat"}},
      {"an escaped number sign", "\\#font Lato\n\\#", {"#font Lato #"}},
      {"a number sign that is no font line", "#fonts\n#1", {"#fonts #1"}},
      {"a backslash inside", "a \\#b \\c", {"a \\#b \\c"}},
      {"soft hyphens are left out", "soft\u00ADhyphen", {"softhyphen"}},
      {"a line of soft hyphens only", "\u00AD", {}},
  };
  for (const Case& one : cases) EXPECT_EQ(texts(one.text), one.paragraphs) << one.what;
}

TEST(SourceText, hasNoStyleBeforeTheFirstFontLine) {
  const auto paragraphs = read("a\n\nb\n#font Lato\nc");
  ASSERT_EQ(paragraphs.size(), 3U);
  EXPECT_FALSE(paragraphs[0].style);
  EXPECT_FALSE(paragraphs[1].style);
  ASSERT_TRUE(paragraphs[2].style);
  EXPECT_EQ(paragraphs[2].style->font, "Lato");
  EXPECT_EQ(paragraphs[2].line, 4);
}

struct FontLine {
  const char* line;
  const char* font;
  int weight;
  double size;
};

TEST(SourceText, fontLinesTellStyleAndSize) {
  constexpr FontLine kLines[] = {
      {"#font Lato", "Lato", 0, 12},
      {"#font DejaVu Sans", "DejaVu Sans", 0, 12},
      {"#font DejaVu Sans:600 22", "DejaVu Sans", 600, 22},
      {"#font\tLato   10.5  ", "Lato", 0, 10.5},
      {"#font Lato-Light.ttf 1", "Lato-Light.ttf", 0, 1},
      {"#font Font 1000", "Font", 0, 1000},
      {"#font 12", "12", 0, 12},
  };
  for (const FontLine& one : kLines) {
    const auto paragraphs = read(std::string(one.line) + "\nx");
    ASSERT_EQ(paragraphs.size(), 1U) << one.line;
    ASSERT_TRUE(paragraphs[0].style) << one.line;
    EXPECT_EQ(paragraphs[0].style->font, one.font) << one.line;
    EXPECT_EQ(paragraphs[0].style->weight, one.weight) << one.line;
    EXPECT_DOUBLE_EQ(paragraphs[0].size, one.size) << one.line;
  }
}

TEST(SourceText, theSizeOfOneFontLineEndsAtTheNext) {
  const auto paragraphs = read("#font Lato 20\na\n#font Lato\nb");
  EXPECT_DOUBLE_EQ(paragraphs.at(0).size, 20);
  EXPECT_DOUBLE_EQ(paragraphs.at(1).size, 12);
}

TEST(SourceText, fontLinesThatMakeNoSenseAreAWrongCallInTheirLine) {
  for (const char* line : {"#font", "#font   ", "#font Lato 0", "#font Lato 1001", "#font :400"}) {
    try {
      read("a\n" + std::string(line) + "\n");
      ADD_FAILURE() << line;
    } catch (const ToolError& error) {
      EXPECT_EQ(error.status(), Status::wrongCall) << line;
      EXPECT_EQ(std::string(error.what()).rfind("t.txt:2: ", 0), 0U) << error.what();
    }
  }
}

}  // namespace
}  // namespace qxfont
