#include "type1/text/leading_number.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>

#include "type1/maps/glyph_list.h"
#include "type1/text/line_reader.h"

namespace QXFontService_NS::type1 {
namespace {

TEST(LeadingNumber, integers) {
  const struct {
    const char* text;
    int base, value;
    const char* rest;
  } rows[] = {{"12 x", 10, 12, " x"},
              {" -7;", 10, -7, ";"},
              {"+3", 10, 3, ""},
              {"x", 10, 0, "x"},
              {"", 10, 0, ""},
              {"-", 10, 0, "-"},
              {"0041;", 16, 0x41, ";"},
              {"0x1F", 16, 0x1F, ""},
              {"0xg", 16, 0, "xg"},
              {"99999999999999999999", 10, INT_MAX, ""},
              {"-99999999999", 10, INT_MIN, ""}};
  for (const auto& row : rows) {
    std::string_view rest;
    EXPECT_EQ(leadingInteger(row.text, row.base, rest), row.value) << row.text;
    EXPECT_EQ(rest, row.rest) << row.text;
  }
}

TEST(LeadingNumber, reals) {
  EXPECT_EQ(leadingReal(" -15.5 x"), -15.5F);
  EXPECT_EQ(leadingReal("1E2"), 100);
  EXPECT_EQ(leadingReal(".5"), 0.5F);
  EXPECT_EQ(leadingReal("x"), 0);
  EXPECT_EQ(leadingReal(""), 0);
}

TEST(LineReader, allLineEnds) {
  std::istringstream stream("a\nb\r\nc\rd\n\n\r\r\ne");
  LineReader lines(stream);
  std::string all;
  for (std::string line; lines.next(line);) all += "[" + line + "]";
  EXPECT_EQ(all, "[a][b][c][d][][][][e]");
}

TEST(GlyphListFile, lines) {
  std::istringstream stream(
      "# comment\n0041;A;more\n0042 ;B\n 0043;C\n\n0044;D  \n0041;Other\n0x45;E\n;Zero\n"
      "0046;\n110000;Beyond\nFFFFFFFFF;Far\n-1;Below\n0047; lead;\n");
  std::map<int, std::string> list;
  readGlyphListFile(stream, list);
  EXPECT_EQ(list,
            (std::map<int, std::string>{
                {0, "Zero"}, {0x41, "A"}, {0x44, "D"}, {0x45, "E"}, {0x46, ""}, {0x47, " lead"}}));
}

TEST(GlyphListFile, linesOfMoreThan64KiBArePassedBy) {
  std::istringstream stream("41;" + std::string(70'000, 'A') + "\n42;B\n");
  std::map<int, std::string> list;
  readGlyphListFile(stream, list);
  EXPECT_EQ(list, (std::map<int, std::string>{{0x42, "B"}}));
}

}  // namespace
}  // namespace QXFontService_NS::type1
