#include "type1/charstrings/charstring_tokens.h"

#include <gtest/gtest.h>

#include <string>

#include "support/type1_builder.h"

namespace QXFontService_NS::type1 {
namespace {

std::string tokensOf(const std::string& bytes, int* seac = nullptr) {
  std::vector<QXValue> tokens;
  const int found = readCharStringTokens(bytes, tokens, true);
  if (seac != nullptr) *seac = found;
  std::string text;
  for (const QXValue& token : tokens) {
    std::string one;
    token.toString().toUTF8String(one);
    text += (text.empty() ? "" : " ") + one;
  }
  return text;
}

TEST(CharStringTokens, numbers) {
  const struct {
    std::string bytes;
    const char* token;
  } rows[] = {{{"\x20", 1}, "-107"},
              {{"\x8B", 1}, "0"},
              {{"\xF6", 1}, "107"},
              {{"\xF7\x00", 2}, "108"},
              {{"\xFA\xFF", 2}, "1131"},
              {{"\xFB\x00", 2}, "-108"},
              {{"\xFE\xFF", 2}, "-1131"},
              {{"\xFF\x7F\xFF\xFF\xFF", 5}, "2147483647"},
              {{"\xFF\xFF\xFF\xFF\xFE", 5}, "-2"}};
  for (const auto& row : rows) EXPECT_EQ(tokensOf(row.bytes), row.token);
}

TEST(CharStringTokens, namesOfOperators) {
  const char* const names[] = {
      "?0",       "hstem",     "?2",        "vstem",      "vmoveto",    "rlineto",  "hlineto",
      "vlineto",  "rrcurveto", "closepath", "callsubr",   "return",     nullptr,    "hsbw",
      "endchar",  "?15",       "blend",     "?17",        "hstemhm",    "hintmask", "cntmask",
      "rmoveto",  "hmoveto",   "vstemhm",   "rcurveline", "rlinecurve", "wcurveto", "hhcurveto",
      "shortint", "callgsubr", "vhcurveto", "hvcurveto"};
  for (std::size_t i = 0; i < std::size(names); ++i) {
    if (names[i] == nullptr) continue;
    EXPECT_EQ(tokensOf(std::string(1, static_cast<char>(i))), names[i]);
  }
}

TEST(CharStringTokens, namesOfEscapes) {
  const struct {
    int number;
    const char* name;
  } rows[] = {{0, "dotsection"},
              {1, "vstem3"},
              {2, "hstem3"},
              {3, "?12-3"},
              {6, "seac"},
              {7, "sbw"},
              {12, "div"},
              {15, "?12-15"},
              {17, "pop"},
              {16, "callothersubr"},
              {33, "setcurrentpoint"},
              {255, "?12-255"}};
  for (const auto& row : rows)
    EXPECT_EQ(tokensOf({static_cast<char>(12), static_cast<char>(row.number)}), row.name);
}

TEST(CharStringTokens, placeOfAnAccent) {
  int seac = 0;
  EXPECT_EQ(tokensOf(qxtest::type1Accent(50, 65, 96), &seac), "0 50 hsbw 0 10 20 65 96 seac");
  EXPECT_EQ(seac, 8);
  tokensOf(qxtest::type1Box(50, 10), &seac);
  EXPECT_EQ(seac, -1);
}

TEST(CharStringTokens, encryptedOnesHaveFourBytesAhead) {
  std::vector<QXValue> tokens;
  const std::string plain = std::string("\1\2\3\4", 4) + qxtest::type1Number(7);
  EXPECT_EQ(
      readCharStringTokens(qxtest::type1Encrypted(plain, qxtest::kCharStringKey), tokens, false),
      -1);
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].getIntegerValue(), 7);
}

TEST(CharStringTokens, whatTheEndCutsOffEndsTheList) {
  EXPECT_EQ(tokensOf({"\x8B\xF7", 2}), "0");
  EXPECT_EQ(tokensOf({"\x8B\xFF\x01\x02\x03", 5}), "0");
  EXPECT_EQ(tokensOf({"\x8B\x0C", 2}), "0");
  std::vector<QXValue> tokens;
  EXPECT_EQ(readCharStringTokens("abc", tokens, false), -1);
  EXPECT_TRUE(tokens.empty());
}

}  // namespace
}  // namespace QXFontService_NS::type1
