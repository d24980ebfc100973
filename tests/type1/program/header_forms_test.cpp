#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

#include "support/type1_builder.h"
#include "type1/program/program_header.h"

namespace QXFontService_NS::type1 {
namespace {

ProgramHeader inSegments(const std::string& text) {
  ProgramHeader header;
  std::istringstream stream(qxtest::type1Segment(1, text));
  EXPECT_FALSE(readPfbHeader(stream, header)) << text;
  return header;
}

ProgramHeader inText(const std::string& text) {
  ProgramHeader header;
  std::istringstream stream(text);
  EXPECT_FALSE(readPfaHeader(stream, header)) << text;
  return header;
}

std::string told(const ProgramHeader& header) {
  std::ostringstream text;
  text << header.fontName << '|' << header.fullName << '|' << header.familyName << '|'
       << header.weightName << '|' << header.weight << '|' << header.italicAngle << '|'
       << header.isFixedPitch << '|' << header.underlinePosition << '|' << header.underlineThickness
       << '|' << header.encodingName << '|' << header.fontBBox[0] << ' ' << header.fontBBox[3];
  return text.str();
}

const char* const kNothing = "||||400|0|0|0|0||0 0";

TEST(HeaderForms, EachKeyIsTakenInBothForms) {
  const struct {
    const char* line;  // without the slash
    const char* told;
  } rows[] = {{"FontName /A", "A||||400|0|0|0|0||0 0"},
              {"FontName (A)", "A||||400|0|0|0|0||0 0"},
              {"FullName (A b)", "|A b|||400|0|0|0|0||0 0"},
              {"FullName /A", "|/A|||400|0|0|0|0||0 0"},
              {"FamilyName (A b)", "||A b||400|0|0|0|0||0 0"},
              {"Weight (Bold)", "|||Bold|700|0|0|0|0||0 0"},
              {"Weight (Unheard)", "|||Unheard|400|0|0|0|0||0 0"},
              {"ItalicAngle -12.5", "||||400|-12.5|0|0|0||0 0"},
              {"IsFixedPitch true", "||||400|0|1|0|0||0 0"},
              {"IsFixedPitch false", kNothing},
              {"UnderlinePosition -100", "||||400|0|0|-100|0||0 0"},
              {"UnderlineThickness 50", "||||400|0|0|0|50||0 0"},
              {"FontBBox {1 2 3 4}", "||||400|0|0|0|0||1 4"},
              {"FontBBox [1 2 3 4]", "||||400|0|0|0|0||1 4"},
              {"FontBBox { 1 2 3 4 5 }", "||||400|0|0|0|0||1 4"},
              {"Version (1)", kNothing},
              {"Notice (1)", kNothing},
              {"fontName /A", kNothing}};
  for (const auto& row : rows) {
    EXPECT_EQ(told(inSegments(std::string("/") + row.line + "\n")), row.told) << row.line;
    EXPECT_EQ(told(inText(std::string(row.line) + "\n")), row.told) << row.line;
    EXPECT_EQ(told(inSegments(std::string(row.line) + "\n")), kNothing) << "bare " << row.line;
    EXPECT_EQ(told(inText(std::string("/") + row.line + "\n")), kNothing) << "/" << row.line;
  }
}

TEST(HeaderForms, TheyDifferInHowMuchOfAValueTheyCompare) {
  EXPECT_TRUE(inSegments("/IsFixedPitch true def\n").isFixedPitch);
  EXPECT_FALSE(inText("IsFixedPitch true def\n").isFixedPitch) << "the whole value is compared";
  EXPECT_EQ(inSegments("/Encoding Own def\n").encodingName, "Own");
  EXPECT_EQ(inSegments("/Encoding Own\n").encodingName, "") << "\"def\" makes it a name";
  EXPECT_EQ(inText("Encoding Own def\n").encodingName, "Own def");
  const ProgramHeader standard = inText("Encoding StandardEncoding def\n");
  EXPECT_FALSE(standard.standardEncoding) << "the whole value is compared";
  EXPECT_TRUE(standard.customEncoding);
  EXPECT_TRUE(inText("Encoding StandardEncoding\n").standardEncoding);
  EXPECT_FALSE(inText("Encoding StandardEncoding\n").customEncoding);
}

TEST(HeaderForms, OnlySegmentsLookForCodesOfTheirOwn) {
  EXPECT_TRUE(inSegments("dup 65 /A put\n").customEncoding);
  EXPECT_TRUE(inSegments("duplicate\n").customEncoding) << "a line that begins so";
  EXPECT_FALSE(inSegments(" dup 65 /A put\n").customEncoding);
  EXPECT_FALSE(inText("dup 65 /A put\n").customEncoding);
}

TEST(HeaderForms, AnIndentedKeyCountsInTextAlone) {
  EXPECT_EQ(inText(" \tFontName /A\n").fontName, "A");
  EXPECT_EQ(inSegments(" /FontName /A def\n").fontName, "");
}

TEST(HeaderForms, LinesEndAtRunsOfCrAndLf) {
  EXPECT_EQ(told(inSegments("\r\r\n/FontName /A def\n\r/FullName (B) def\r/Weight (Bold) def")),
            "A|B||Bold|700|0|0|0|0||0 0");
}

TEST(HeaderForms, BlankLinesArePassedBy) {
  EXPECT_EQ(inText("\n \t\r\n\r\nFontName /A\n").fontName, "A");
}

TEST(HeaderForms, ABoxWithoutFourNumbersFails) {
  for (const char* box : {"", "1 2 3 4", "{1 2 3", "{}", "{1 2 3} 4", "("}) {
    ProgramHeader header;
    std::istringstream text(std::string("FontBBox ") + box + "\n");
    const auto failure = readPfaHeader(text, header);
    ASSERT_TRUE(failure) << box;
    EXPECT_EQ(failure->code, 1928);
    EXPECT_EQ(failure->detail, "") << "of a text no line is told";
    std::istringstream segments(qxtest::type1Segment(1, std::string("/FontBBox ") + box + "\r\n"));
    EXPECT_EQ(readPfbHeader(segments, header)->detail, std::string("/FontBBox ") + box);
  }
}

}  // namespace
}  // namespace QXFontService_NS::type1
