#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "qxfont/cli/document_font.h"
#include "qxfont/cli/file_type_name.h"
#include "qxfont/cli/folder_configuration.h"
#include "qxfont/cli/font_style.h"
#include "qxfont/cli/progress.h"
#include "qxfont/cli/source_date.h"
#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

/// The status with which a function ends the command, or `done`.
template <class Function>
Status statusOf(Function&& function) {
  try {
    function();
  } catch (const ToolError& error) {
    return error.status();
  }
  return Status::done;
}

struct StyleCase {
  const char* text;
  const char* font;
  int weight;
  bool italic;
};

TEST(FontStyle, takesWeightAndItalicOffTheEnd) {
  constexpr StyleCase kCases[] = {
      {"Lato", "Lato", 0, false},
      {"DejaVu Sans:600", "DejaVu Sans", 600, false},
      {"Lato:italic", "Lato", 0, true},
      {"Lato:700:italic", "Lato", 700, true},
      {"Lato:italic:700", "Lato", 700, true},
      {"a:b:300", "a:b", 300, false},
      {"Lato:Italic", "Lato:Italic", 0, false},
      {"Lato:12345", "Lato:12345", 0, false},
      {"Lato:300:400", "Lato:300", 400, false},
      {"/fonts/a.ttf:1000", "/fonts/a.ttf", 1000, false},
  };
  for (const StyleCase& one : kCases) {
    const FontStyle style = parseFontStyle(one.text);
    EXPECT_EQ(style.font, one.font) << one.text;
    EXPECT_EQ(style.weight, one.weight) << one.text;
    EXPECT_EQ(style.italic, one.italic) << one.text;
  }
}

TEST(FontStyle, refusesStylesWithoutFontAndWeightsThatAreNone) {
  for (const char* text : {"", ":italic", ":400", "Lato:0", "Lato:1001"}) {
    EXPECT_EQ(statusOf([&] { parseFontStyle(text); }), Status::wrongCall) << text;
  }
}

TEST(DocumentFont, isAFileAndAStyle) {
  const DocumentFont font = parseDocumentFont("/a/b.ttf=My Font:700:italic");
  EXPECT_EQ(font.file, "/a/b.ttf");
  EXPECT_EQ(font.style.font, "My Font");
  EXPECT_EQ(font.style.weight, 700);
  EXPECT_TRUE(font.style.italic);
}

TEST(DocumentFont, withoutAStyleLeavesItToTheFile) {
  const DocumentFont font = parseDocumentFont("/a/b.ttf");
  EXPECT_EQ(font.file, "/a/b.ttf");
  EXPECT_EQ(font.style.font, "");
}

TEST(DocumentFont, withAnEmptyFamilyIsRefused) {
  EXPECT_EQ(statusOf([] { parseDocumentFont("/a/b.ttf="); }), Status::wrongCall);
}

TEST(FolderConfiguration, holdsEachFolderOnceAndEscaped) {
  EXPECT_EQ(folderConfiguration({"/a/b", "/a/./b", "/c&\"<"}),
            "<font-config windows-registry=\"disable\">\n"
            "  <font-folder path=\"/a/b\" recursive=\"yes\"/>\n"
            "  <font-folder path=\"/c&amp;&quot;&lt;\" recursive=\"yes\"/>\n"
            "</font-config>\n");
}

TEST(Text, isMadeFitForATerminal) {
  EXPECT_EQ(shown(std::string_view("a\x1b[31mb\nc")),
            "a\xEF\xBF\xBD[31mb\xEF\xBF\xBD"
            "c");
  EXPECT_EQ(shown(std::string_view("猫 é")), "猫 é");
  EXPECT_EQ(shown(icu::UnicodeString(u"a\u009b1m")),
            "a\xEF\xBF\xBD"
            "1m");
}

TEST(Text, tellsUtf8FromOtherBytes) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("aé猫\xF0\x9F\x98\x80"));
  for (const char* bytes : {"\xE9", "\xC3", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_FALSE(isUtf8(bytes));
  }
}

TEST(Text, messagesOfSeveralLinesBecomeOne) {
  EXPECT_EQ(oneLine(u"what\nwhere\n\n"), "what: where");
  EXPECT_EQ(oneLine(u""), "");
}

TEST(Text, codePointsHaveFourDigitsAtLeast) {
  EXPECT_EQ(codePointName(0x41), "U+0041");
  EXPECT_EQ(codePointName(0x1F600), "U+1F600");
}

TEST(FileTypeName, isToldForEveryKind) {
  EXPECT_EQ(fileTypeName(5), "TrueType");
  EXPECT_EQ(fileTypeName(10), "WOFF");
  EXPECT_EQ(fileTypeName(0), "unknown");
  EXPECT_EQ(fileTypeName(11), "unknown");
  EXPECT_EQ(fileTypeName(-1), "unknown");
}

TEST(Progress, drawsHowFarTheWorkIs) {
  EXPECT_EQ(progressLine("setting", 0, 4), "setting [........................] 0/4");
  EXPECT_EQ(progressLine("setting", 2, 4), "setting [############............] 2/4");
  EXPECT_EQ(progressLine("setting", 4, 4), "setting [########################] 4/4");
  EXPECT_EQ(progressLine("setting", 0, 0), "setting [........................] 0/0");
  EXPECT_EQ(progressLine("setting", 9, 4), "setting [########################] 9/4");
}

class SourceDate : public testing::Test {
 protected:
  ~SourceDate() override { unsetenv("SOURCE_DATE_EPOCH"); }
};

TEST_F(SourceDate, isThatOfTheVariableOrNone) {
  unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_EQ(sourceDate(), "");
  setenv("SOURCE_DATE_EPOCH", "0", 1);
  EXPECT_EQ(sourceDate(), "D:19700101000000Z");
  setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
  EXPECT_EQ(sourceDate(), "D:20231114221320Z");
}

TEST_F(SourceDate, thatIsNoTimeIsRefused) {
  for (const char* value : {"now", "-1", "12x", "253402300800", "99999999999999999999"}) {
    setenv("SOURCE_DATE_EPOCH", value, 1);
    EXPECT_EQ(statusOf([] { sourceDate(); }), Status::wrongCall) << value;
  }
}

}  // namespace
}  // namespace qxfont
