#include "embed/charstring/converter.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "embed/charstring/token_text.h"

namespace QXFontService_NS::charstring {
namespace {

using embed::Keyword;
using QXCommonNS::QXValue;

QXValue privateMap(const QXValue& defaultWidth, const QXValue& nominalWidth) {
  QXValue map;
  map.setNamedItem(embed::keywordName(Keyword::kDefaultWidthX), defaultWidth);
  map.setNamedItem(embed::keywordName(Keyword::kNominalWidthX), nominalWidth);
  return map;
}

/// A conversion with default width 500 and nominal width 600, four Subrs there already.
struct Conversion {
  explicit Conversion(const std::string& line) : converter(privateMap(QXValue(500), QXValue(600))) {
    good = converter.convertCharString(tokensOf(line), 4, out, subrs);
  }
  [[nodiscard]] std::string text() const { return good ? textOf(out) : "false"; }

  FS_CharStringConverter converter;
  FS_CharStringTokens out;
  std::vector<FS_CharStringTokens> subrs;
  bool good = false;
};

std::string convert(const std::string& line) {
  return Conversion(line).text();
}

/// What a path operator behind `0 0 rmoveto` gives.
std::string path(const std::string& line) {
  const std::string start = "0 500 hsbw 0 0 rmoveto ";
  const std::string text = convert("0 0 rmoveto " + line);
  return text == "false" || text + " " == start ? text : text.substr(start.size());
}

TEST(CharStringWidth, ComesFromThePrivateDict) {
  const FS_CharStringConverter none{QXValue()};
  EXPECT_EQ(none.defaultWidthX, 0);
  EXPECT_EQ(none.nominalWidthX, 0);
  const FS_CharStringConverter real{privateMap(QXValue(500.9), QXValue(-3.9))};
  EXPECT_EQ(real.defaultWidthX, 500);
  EXPECT_EQ(real.nominalWidthX, -3);
}

TEST(CharStringWidth, IsTakenByParityOfTheFirstOperator) {
  EXPECT_EQ(convert("7 hmoveto"), "0 500 hsbw 7 hmoveto");
  EXPECT_EQ(convert("50 7 hmoveto"), "0 650 hsbw 7 hmoveto");
  EXPECT_EQ(convert("7 vmoveto"), "0 500 hsbw 7 vmoveto");
  EXPECT_EQ(convert("-50 7 vmoveto"), "0 550 hsbw 7 vmoveto");
  EXPECT_EQ(convert("1 2 rmoveto"), "0 500 hsbw 1 2 rmoveto");
  EXPECT_EQ(convert("50 1 2 rmoveto"), "0 650 hsbw 1 2 rmoveto");
  for (const char* stem : {"hstem", "hstemhm", "vstem", "vstemhm"}) {
    const std::string out = stem[0] == 'h' ? "hstem" : "vstem";
    EXPECT_EQ(convert(std::string("1 2 ") + stem), "0 500 hsbw 1 2 " + out);
    EXPECT_EQ(convert(std::string("50 1 2 ") + stem), "0 650 hsbw 1 2 " + out);
    EXPECT_EQ(convert(std::string("50 ") + stem), "0 650 hsbw");
    EXPECT_EQ(convert(stem), "0 500 hsbw");
  }
}

TEST(CharStringWidth, KeepsItsFraction) {
  EXPECT_EQ(convert("50.5 7 hmoveto"), "0 650.5 hsbw 7 hmoveto");
}

TEST(CharStringWidth, EndcharAlwaysTakesOne) {
  EXPECT_EQ(convert("50 endchar"), "0 650 hsbw endchar");
}

// A blank glyph of the default width cannot be converted: kept.
TEST(CharStringWidth, BareEndcharIsRefused) {
  EXPECT_EQ(convert("endchar"), "false");
}

TEST(CharStringWidth, MoveWithoutOperandsIsRefused) {
  EXPECT_EQ(convert("hmoveto"), "false");
  EXPECT_EQ(convert("vmoveto"), "false");
}

TEST(CharStringWidth, OnlyEightOperatorsMayComeFirst) {
  for (const char* op : {"hintmask", "cntrmask", "rlineto", "hlineto", "vlineto", "rrcurveto",
                         "hhcurveto", "vvcurveto", "hvcurveto", "vhcurveto", "rcurveline",
                         "rlinecurve", "flex", "flex1", "hflex", "hflex1", "callsubr", "hsbw", "?"})
    EXPECT_EQ(convert(std::string("1 2 3 4 5 6 7 8 9 10 11 12 13 ") + op), "false") << op;
  EXPECT_EQ(convert("hintmask 1 128"), "false");
}

TEST(CharStringWidth, ParityIsAskedOnlyOnce) {
  EXPECT_EQ(convert("1 2 hstem 50 7 hmoveto"), "false");
}

TEST(CharStringEnd, LeftOverOperandsAreDropped) {
  EXPECT_EQ(convert("7 hmoveto 1 2 3"), "0 500 hsbw 7 hmoveto");
  EXPECT_EQ(convert(""), "");
  EXPECT_EQ(convert("1 2 3"), "");
}

TEST(CharStringEnd, EndcharWithOperandsIsRefused) {
  EXPECT_EQ(path("endchar"), "endchar");
  EXPECT_EQ(path("1 endchar"), "false");
  EXPECT_EQ(convert("10 20 65 194 endchar"), "false");  // an accented composite
}

TEST(CharStringEnd, TokensBehindEndcharAreConverted) {
  EXPECT_EQ(path("endchar 5 hmoveto"), "endchar 5 hmoveto");
}

TEST(CharStringStems, AreWrittenPairByPair) {
  Conversion conversion("10 20 30 40 hstemhm 5 -20 vstem");
  EXPECT_EQ(conversion.text(), "0 500 hsbw 10 20 hstem 40 40 hstem 5 -20 vstem");
  ASSERT_EQ(conversion.converter.stems.size(), 3u);
  EXPECT_EQ(conversion.converter.stems[1].kind, 0);
  EXPECT_EQ(conversion.converter.stems[1].position.getIntegerValue(), 40);
  EXPECT_EQ(conversion.converter.stems[2].kind, 1);
}

TEST(CharStringStems, OddCountBehindTheFirstOperatorIsRefused) {
  EXPECT_EQ(convert("1 2 hstem 1 2 3 vstem"), "false");
  EXPECT_EQ(convert("1 2 hstem vstem 7 hmoveto"), "0 500 hsbw 1 2 hstem 7 hmoveto");
}

struct PathCase {
  const char* in;
  const char* out;
};

TEST(CharStringPaths, AreWrittenAsTheTableSays) {
  const std::vector<PathCase> cases = {
      {"1 2 rmoveto", "1 2 rmoveto"},
      {"1 hmoveto", "1 hmoveto"},
      {"1 vmoveto", "1 vmoveto"},
      {"1 2 3 4 rlineto", "1 2 rlineto 3 4 rlineto"},
      {"1 2 3 hlineto", "1 hlineto 2 vlineto 3 hlineto"},
      {"1 2 3 vlineto", "1 vlineto 2 hlineto 3 vlineto"},
      {"1 2 3 4 5 6 rrcurveto", "1 2 3 4 5 6 rrcurveto"},
      {"1 2 3 4 5 6 7 8 9 10 11 12 rrcurveto", "1 2 3 4 5 6 rrcurveto 7 8 9 10 11 12 rrcurveto"},
      {"1 2 3 4 hhcurveto", "1 0 2 3 4 0 rrcurveto"},
      {"9 1 2 3 4 5 6 7 8 hhcurveto", "1 9 2 3 4 0 rrcurveto 5 0 6 7 8 0 rrcurveto"},
      {"1 2 3 4 vvcurveto", "0 1 2 3 0 4 rrcurveto"},
      {"9 1 2 3 4 5 6 7 8 vvcurveto", "9 1 2 3 0 4 rrcurveto 0 5 6 7 0 8 rrcurveto"},
      {"1 2 3 4 hvcurveto", "1 0 2 3 0 4 rrcurveto"},
      {"1 2 3 4 9 hvcurveto", "1 0 2 3 9 4 rrcurveto"},
      {"1 2 3 4 5 6 7 8 hvcurveto", "1 0 2 3 0 4 rrcurveto 0 5 6 7 8 0 rrcurveto"},
      {"1 2 3 4 5 6 7 8 9 hvcurveto", "1 0 2 3 0 4 rrcurveto 0 5 6 7 8 9 rrcurveto"},
      {"1 2 3 4 vhcurveto", "0 1 2 3 4 0 rrcurveto"},
      {"1 2 3 4 9 vhcurveto", "0 1 2 3 4 9 rrcurveto"},
      {"1 2 3 4 5 6 7 8 vhcurveto", "0 1 2 3 4 0 rrcurveto 5 0 6 7 0 8 rrcurveto"},
      {"1 2 3 4 5 6 7 8 9 vhcurveto", "0 1 2 3 4 0 rrcurveto 5 0 6 7 9 8 rrcurveto"},
      {"1 2 3 4 5 6 7 8 rcurveline", "1 2 3 4 5 6 rrcurveto 7 8 rlineto"},
      {"7 8 rcurveline", "7 8 rlineto"},
      {"1 2 3 4 5 6 7 8 rlinecurve", "1 2 rlineto 3 4 5 6 7 8 rrcurveto"},
      {"1 2 3 4 5 6 rlinecurve", "1 2 3 4 5 6 rrcurveto"},
      {"1.5 2 rlineto", "1.5 2 rlineto"},
      {"rlineto hlineto vlineto rrcurveto hhcurveto vvcurveto hvcurveto vhcurveto endchar",
       "endchar"},
  };
  for (const PathCase& test : cases) EXPECT_EQ(path(test.in), test.out) << test.in;
}

TEST(CharStringPaths, CountsThatDoNotFitAreRefused) {
  for (const char* line : {"1 rmoveto",
                           "1 2 3 rmoveto",
                           "rmoveto",
                           "hmoveto",
                           "1 2 hmoveto",
                           "1 2 vmoveto",
                           "1 rlineto",
                           "1 2 3 rlineto",
                           "1 2 hhcurveto",
                           "1 2 3 hhcurveto",
                           "1 2 3 4 5 6 vvcurveto",
                           "1 2 3 hvcurveto",
                           "1 2 3 4 5 6 7 vhcurveto",
                           "rcurveline",
                           "1 rcurveline",
                           "1 2 3 rcurveline",
                           "1 2 3 4 5 6 7 rcurveline",
                           "rlinecurve",
                           "1 2 3 4 5 rlinecurve",
                           "1 2 3 4 5 6 7 rlinecurve"})
    EXPECT_EQ(path(line), "false") << line;
}

TEST(CharStringPaths, OperatorsWithoutAType1FormAreRefused) {
  for (const char* op : {"blend", "callsubr", "return", "add", "dotsection", "seac", "hsbw", "?"})
    EXPECT_EQ(path(op), "false") << op;
}

// Extra operands of `rrcurveto` go, the first ones.
TEST(CharStringPaths, CurveDropsFromTheFront) {
  EXPECT_EQ(path("9 8 1 2 3 4 5 6 rrcurveto"), "1 2 3 4 5 6 rrcurveto");
  EXPECT_EQ(path("1 2 3 rrcurveto endchar"), "endchar");
}

TEST(CharStringFlex, IsTwoCurvesOfTheLastThirteen) {
  EXPECT_EQ(path("1 2 3 4 5 6 7 8 9 10 11 12 50 flex"),
            "1 2 3 4 5 6 rrcurveto 7 8 9 10 11 12 rrcurveto");
  EXPECT_EQ(path("99 1 2 3 4 5 6 7 8 9 10 11 12 50 flex"),
            "1 2 3 4 5 6 rrcurveto 7 8 9 10 11 12 rrcurveto");
  EXPECT_EQ(path("1 2 3 4 5 6 7 8 9 10 11 12 flex"), "false");
}

TEST(CharStringFlex, Flex1EndsOnTheLongerAxis) {
  // dx = 10 + 5 = 15, dy = 1: the last operand is dx6, and y returns.
  EXPECT_EQ(path("10 0 0 1 0 0 0 0 5 0 7 flex1"), "10 0 0 1 0 0 rrcurveto 0 0 5 0 7 -1 rrcurveto");
  // dy is longer, and negative: absolute values count.
  EXPECT_EQ(path("1 -10 0 0 0 0 0 0 0 0 7 flex1"),
            "1 -10 0 0 0 0 rrcurveto 0 0 0 0 -1 7 rrcurveto");
  // A tie goes to y.
  EXPECT_EQ(path("5 5 0 0 0 0 0 0 0 0 7 flex1"), "5 5 0 0 0 0 rrcurveto 0 0 0 0 -5 7 rrcurveto");
  EXPECT_EQ(path("99 5 5 0 0 0 0 0 0 0 0 7 flex1"), "5 5 0 0 0 0 rrcurveto 0 0 0 0 -5 7 rrcurveto");
  EXPECT_EQ(path("1 2 3 4 5 6 7 8 9 10 flex1"), "false");
}

TEST(CharStringFlex, HflexIsType1FlexOfHeight50) {
  const std::string expected =
      "1 callsubr 7 0 rmoveto 2 callsubr -6 0 rmoveto 2 callsubr 2 9 rmoveto 2 callsubr "
      "4 0 rmoveto 2 callsubr 5 0 rmoveto 2 callsubr 6 -9 rmoveto 2 callsubr 8 0 rmoveto 2 "
      "callsubr "
      "50 126 200 0 callsubr";
  const std::string text = convert("100 200 rmoveto 1 2 9 4 5 6 8 hflex");
  EXPECT_EQ(text, "0 500 hsbw 100 200 rmoveto " + expected);
  EXPECT_EQ(convert("100 200 rmoveto 77 1 2 9 4 5 6 8 hflex"), text);
  EXPECT_EQ(path("1 2 9 4 5 6 hflex"), "false");
}

TEST(CharStringFlex, Hflex1ReturnsToTheHeightOfItsStart) {
  // dx1 dy1 dx2 dy2 dx3 dx4 dx5 dy5 dx6
  const std::string expected =
      "1 callsubr 9 0 rmoveto 2 callsubr -8 2 rmoveto 2 callsubr 3 4 rmoveto 2 callsubr "
      "5 0 rmoveto 2 callsubr 6 0 rmoveto 2 callsubr 7 8 rmoveto 2 callsubr 9 -14 rmoveto 2 "
      "callsubr "
      "50 131 200 0 callsubr";
  EXPECT_EQ(convert("100 200 rmoveto 1 2 3 4 5 6 7 8 9 hflex1"),
            "0 500 hsbw 100 200 rmoveto " + expected);
  EXPECT_EQ(convert("100 200 rmoveto 77 1 2 3 4 5 6 7 8 9 hflex1"),
            "0 500 hsbw 100 200 rmoveto " + expected);
  EXPECT_EQ(path("1 2 3 4 5 6 7 8 hflex1"), "false");
}

// Every operator that draws moves the point.
TEST(CharStringPoint, FollowsEveryPathOperator) {
  const std::vector<std::pair<const char*, std::pair<int, int>>> cases = {
      {"1 2 rmoveto", {1, 2}},
      {"3 hmoveto", {3, 0}},
      {"3 vmoveto", {0, 3}},
      {"1 2 3 4 rlineto", {4, 6}},
      {"1 2 3 hlineto", {4, 2}},
      {"1 2 3 vlineto", {2, 4}},
      {"1 2 3 4 5 6 rrcurveto", {9, 12}},
      {"9 1 2 3 4 hhcurveto", {7, 12}},
      {"9 1 2 3 4 vvcurveto", {11, 8}},
      {"1 2 3 4 9 hvcurveto", {12, 7}},
      {"1 2 3 4 9 vhcurveto", {6, 13}},
      {"1 2 3 4 5 6 7 8 rcurveline", {16, 20}},
      {"1 2 3 4 5 6 7 8 rlinecurve", {16, 20}},
      {"1 2 3 4 5 6 7 8 9 10 11 12 50 flex", {36, 42}},
      {"10 0 0 1 0 0 0 0 5 0 7 flex1", {22, 0}},
      {"1 2 9 4 5 6 8 hflex", {26, 0}},
      {"1 2 3 4 5 6 7 8 9 hflex1", {31, 0}},
      {"1.9 -1.9 rlineto", {1, -1}},
      {"2147483647 0 rlineto 1 0 rlineto", {-2147483647 - 1, 0}},
  };
  for (const auto& [line, point] : cases) {
    Conversion conversion(std::string("0 0 rmoveto ") + line);
    EXPECT_TRUE(conversion.good) << line;
    EXPECT_EQ(conversion.converter.x, point.first) << line;
    EXPECT_EQ(conversion.converter.y, point.second) << line;
  }
}

TEST(CharStringPoint, StartsAnewForEachGlyph) {
  Conversion conversion("1 2 hstem 10 20 rmoveto");
  FS_CharStringTokens out;
  EXPECT_TRUE(
      conversion.converter.convertCharString(tokensOf("1 1 rmoveto"), 9, out, conversion.subrs));
  EXPECT_EQ(conversion.converter.x, 1);
  EXPECT_TRUE(conversion.converter.stems.empty());
  EXPECT_EQ(conversion.converter.subrBase, 9);
}

TEST(CharStringHintmask, MakesASubrOfTheStemsInForce) {
  Conversion conversion("10 20 30 40 hstemhm 5 6 vstemhm hintmask 1 160 7 hmoveto hintmask 1 64");
  EXPECT_EQ(conversion.text(),
            "0 500 hsbw 10 20 hstem 40 40 hstem 5 6 vstem 4 1 3 callothersubr pop callsubr "
            "7 hmoveto 5 1 3 callothersubr pop callsubr");
  ASSERT_EQ(conversion.subrs.size(), 2u);
  EXPECT_EQ(textOf(conversion.subrs[0]), "10 20 hstem 5 6 vstem return");
  EXPECT_EQ(textOf(conversion.subrs[1]), "40 40 hstem return");
}

TEST(CharStringHintmask, EqualMasksAreNotMerged) {
  Conversion conversion("1 2 hstemhm hintmask 1 128 hintmask 1 128");
  EXPECT_EQ(conversion.subrs.size(), 2u);
}

TEST(CharStringHintmask, WithoutStemsMakesAnEmptySubr) {
  Conversion conversion("7 hmoveto hintmask 0");
  EXPECT_EQ(conversion.text(), "0 500 hsbw 7 hmoveto 4 1 3 callothersubr pop callsubr");
  EXPECT_EQ(textOf(conversion.subrs.at(0)), "return");
}

TEST(CharStringHintmask, CountsBitsAcrossTheBytes) {
  std::string line;
  for (int i = 0; i < 9; ++i) line += "1 " + std::to_string(i) + " ";
  Conversion conversion(line + "hstemhm hintmask 2 1 128");
  EXPECT_EQ(textOf(conversion.subrs.at(0)), "8 7 hstem 9 8 hstem return");
}

TEST(CharStringHintmask, PendingOperandsAreStemsOfTheOtherDirection) {
  Conversion vertical("1 2 hstemhm 3 4 hintmask 1 192");
  EXPECT_EQ(vertical.text(), "0 500 hsbw 1 2 hstem 3 4 vstem 4 1 3 callothersubr pop callsubr");
  EXPECT_EQ(textOf(vertical.subrs.at(0)), "1 2 hstem 3 4 vstem return");
  Conversion horizontal("1 2 vstemhm 3 4 hintmask 1 64");
  EXPECT_EQ(textOf(horizontal.subrs.at(0)), "3 4 hstem return");
  EXPECT_EQ(convert("1 2 hstem 3 4 cntrmask 1 0"), "0 500 hsbw 1 2 hstem 3 4 vstem");
  EXPECT_EQ(convert("1 2 hstemhm 3 hintmask 1 0"), "false");
}

TEST(CharStringHintmask, PendingOperandsBehindOthersAreRefused) {
  EXPECT_EQ(convert("1 2 hstemhm hintmask 1 128 3 4 hintmask 1 128"), "false");
  EXPECT_EQ(convert("7 hmoveto 3 4 hintmask 1 128"), "false");
}

TEST(CharStringHintmask, TokensRunningOutAreRefused) {
  EXPECT_EQ(convert("1 2 hstemhm hintmask"), "false");
  EXPECT_EQ(convert("1 2 hstemhm hintmask 2 128"), "false");
  EXPECT_EQ(convert("1 2 hstemhm cntrmask 1"), "false");
  EXPECT_EQ(convert("1 2 hstemhm hintmask -1 128"), "false");
}

TEST(CharStringHintmask, BitWithoutAStemIsOutOfRange) {
  EXPECT_THROW(convert("1 2 hstemhm hintmask 1 64"), std::out_of_range);
  EXPECT_THROW(convert("7 hmoveto cntrmask 1 128"), std::out_of_range);
}

TEST(CharStringCntrmask, CountersStandRightBehindTheWidth) {
  Conversion conversion("10 5 20 6 hstemhm 100 7 vstemhm cntrmask 1 224 7 hmoveto endchar");
  // Horizontal stems at 10 and 30; the last of each group is marked.
  EXPECT_EQ(conversion.text(),
            "0 500 hsbw 1 10 5 21 -6 1 107 -7 8 13 callothersubr "
            "10 5 hstem 30 6 hstem 100 7 vstem 7 hmoveto endchar");
  EXPECT_EQ(conversion.converter.hCounters.size(), 1u);
  EXPECT_EQ(conversion.converter.vCounters.size(), 1u);
}

TEST(CharStringCntrmask, EveryMaskIsAGroupAndEmptyOnesAreDropped) {
  Conversion conversion("10 5 hstemhm cntrmask 1 128 cntrmask 1 0 cntrmask 1 128");
  EXPECT_EQ(conversion.converter.hCounters.size(), 2u);
  EXPECT_TRUE(conversion.converter.vCounters.empty());
  EXPECT_EQ(conversion.text(), "0 500 hsbw 2 15 -5 15 -5 0 6 13 callothersubr 10 5 hstem");
  EXPECT_EQ(convert("10 5 hstemhm cntrmask 1 0"), "0 500 hsbw 10 5 hstem");
}

TEST(CharStringCntrmask, GhostAtTheEndStaysUnmarked) {
  EXPECT_EQ(convert("10 -20 hstemhm cntrmask 1 128"),
            "0 500 hsbw 1 10 -20 0 4 13 callothersubr 10 -20 hstem");
}

}  // namespace
}  // namespace QXFontService_NS::charstring
