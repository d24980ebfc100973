#include "type1/program/charstring_work.h"

#include <gtest/gtest.h>

#include <string>

#include "support/byte_text.h"
#include "support/type1_builder.h"

namespace QXFontService_NS::type1 {
namespace {

using qxtest::bytesOf;
using qxtest::type1Number;

constexpr std::uint64_t kBudget = std::uint64_t{1} << 25;
constexpr std::uint64_t kMostOfFreeType = 20'000'000;

std::string call(int subr) {
  return type1Number(subr) + bytesOf({10});
}

const std::string kReturn = bytesOf({11});
const std::string kEndChar = bytesOf({14});

/// The work that a glyph "A" takes.
std::uint64_t workOf(const ProgramCharStrings& program, const char* glyph = "A") {
  CharStringWork work(program, kBudget);
  work.spend(glyph);
  return kBudget - work.left();
}

ProgramCharStrings programOf(const std::string& glyph,
                             const std::map<int, std::string>& subrs = {}) {
  ProgramCharStrings program;
  program.subrs = subrs;
  program.glyphs.emplace("A", glyph);
  return program;
}

TEST(CharStringWork, CountsTheTokensOfAGlyphAndOfWhatItCalls) {
  const struct {
    const char* what;
    ProgramCharStrings program;
    std::uint64_t work;
  } rows[] = {
      {"numbers of all lengths", programOf(bytesOf({139, 247, 1, 251, 1, 255, 0, 0, 0, 1})), 4},
      {"operators of one and two bytes", programOf(bytesOf({13, 12, 0, 14})), 3},
      {"nothing counts behind its end", programOf(kEndChar + call(0)), 1},
      {"nor behind a return", programOf(kReturn + call(0)), 1},
      {"a call", programOf(call(0) + kEndChar, {{0, bytesOf({22, 11})}}), 5},
      {"a subroutine without a return", programOf(call(0) + kEndChar, {{0, bytesOf({22})}}), 4},
      {"a subroutine that ends the glyph", programOf(call(0) + call(0), {{0, kEndChar}}), 3},
      {"a subroutine that is not there ends it", programOf(call(7) + call(0), {{0, kReturn}}), 2},
  };
  for (const auto& row : rows) EXPECT_EQ(workOf(row.program), row.work) << row.what;
}

TEST(CharStringWork, AChangeOfHintsHandsItsSubroutineOn) {
  // "5 4 callsubr", and subroutine 4 is "1 3 callothersubr pop callsubr return".
  const std::string change = type1Number(1) + type1Number(3) + bytesOf({12, 16, 12, 17, 10, 11});
  const std::string glyph = type1Number(5) + call(4) + kEndChar;
  EXPECT_EQ(workOf(programOf(glyph, {{4, change}, {5, bytesOf({1, 11})}})), 12u);
}

TEST(CharStringWork, WhatCannotBeFollowedCostsWhatFreeTypeGrantsAtMost) {
  const std::map<int, std::string> subrs{{5, kReturn}};
  const std::string other = type1Number(5) + type1Number(1) + type1Number(9) + bytesOf({12, 16});
  for (const std::string& number :
       {type1Number(10) + type1Number(2) + bytesOf({12, 12}), other + bytesOf({12, 17}),
        bytesOf({12, 17}), bytesOf({22}), std::string()}) {
    const std::uint64_t work = workOf(programOf(number + bytesOf({10}) + kEndChar, subrs));
    EXPECT_GE(work, kMostOfFreeType);
    EXPECT_LT(work, kMostOfFreeType + 20);
  }
  EXPECT_EQ(workOf(programOf(kEndChar), "B"), kMostOfFreeType) << "a glyph that is not there";
  ProgramCharStrings odd = programOf(call(7) + kEndChar);
  odd.isSound = false;
  EXPECT_EQ(workOf(odd), kMostOfFreeType + 2) << "a subroutine that may be there all the same";
}

TEST(CharStringWork, ExplodingCallsSpendItForGood) {
  std::map<int, std::string> subrs{{0, kReturn}};
  for (int i = 1; i <= 10; ++i) {
    std::string calls;
    for (int k = 0; k < 50; ++k) calls += call(i - 1);
    subrs.emplace(i, calls + kReturn);
  }
  ProgramCharStrings program = programOf(kEndChar, subrs);
  program.glyphs.emplace("bomb", call(10) + kEndChar);
  CharStringWork work(program, 100'000);
  EXPECT_TRUE(work.spend("A"));
  EXPECT_FALSE(work.spend("bomb"));
  EXPECT_EQ(work.left(), 0u);
  EXPECT_FALSE(work.spend("A")) << "nothing is left for others";
}

TEST(CharStringWork, EndlessCallsEnd) {
  EXPECT_LT(workOf(programOf(call(0), {{0, call(0)}})), 100u);
  const std::string twice = call(0) + call(0);
  EXPECT_LT(workOf(programOf(call(0), {{0, twice}})), 100u) << "too deep ends the glyph";
}

TEST(CharStringWork, AnAccentTakesThatOfItsPartsWhichHaveNone) {
  ProgramCharStrings program = programOf(bytesOf({22, 14}));
  program.glyphs.emplace("grave", qxtest::type1Accent(1, 65, 65));
  program.glyphs.emplace("Agrave", qxtest::type1Accent(1, 65, 193));
  const std::uint64_t own = 9;
  EXPECT_EQ(workOf(program, "Agrave"), own + 2 + own) << "A, and an accent that is one itself";
  program.glyphs.emplace("far", qxtest::type1Accent(1, 300, 66));
  EXPECT_EQ(workOf(program, "far"), own) << "parts that are not there";
  program.glyphs.emplace("bare", bytesOf({12, 6}));
  EXPECT_GE(workOf(program, "bare"), kMostOfFreeType);
}

TEST(CharStringWork, AllGlyphsOfANameCount) {
  ProgramCharStrings program = programOf(kEndChar);
  program.glyphs.emplace("A", bytesOf({22, 14}));
  EXPECT_EQ(workOf(program), 3u);
}

TEST(CharStringWork, ANameThatFreeTypeCutsIsFoundByItsBeginning) {
  ProgramCharStrings program;
  const std::string name(63, 'n');
  program.glyphs.emplace(name + "one", kEndChar);
  program.glyphs.emplace(name + "two", kEndChar);
  EXPECT_EQ(workOf(program, name.c_str()), 2u);
  EXPECT_EQ(workOf(program, name.substr(1).c_str()), kMostOfFreeType);
}

TEST(CharStringWork, NumbersAreCutByTheEndAndOperandsHaveABound) {
  EXPECT_EQ(workOf(programOf(bytesOf({247}))), 1u);
  EXPECT_EQ(workOf(programOf(bytesOf({255, 1}))), 1u);
  EXPECT_EQ(workOf(programOf(bytesOf({12}))), 1u);
  EXPECT_LE(workOf(programOf(std::string(10'000, '\x8B'))), 1'000u);
}

}  // namespace
}  // namespace QXFontService_NS::type1
