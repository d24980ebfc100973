#include "embed/charstring/type2_interpreter.h"

#include <gtest/gtest.h>

#include <climits>

#include "embed/charstring/arithmetic.h"
#include "embed/charstring/token_text.h"
#include "support/cff_builder.h"
#include "support/truncation.h"

namespace QXFontService_NS::charstring {
namespace {

using embed::Keyword;
using qxtest::CharStringBuilder;

std::string interpret(const std::string& bytes, const FS_CFFStrings& global = {},
                      const FS_CFFStrings& local = {}) {
  FS_CharStringTokens tokens;
  HintCounters counters;
  WorkBudget budget = glyphBudget();
  if (!interpretCharString(bytes, global, local, tokens, counters, budget)) return "false";
  return textOf(tokens);
}

std::string interpret(const CharStringBuilder& bytes, const FS_CFFStrings& global = {},
                      const FS_CFFStrings& local = {}) {
  return interpret(bytes.str(), global, local);
}

TEST(Type2Interpreter, PathAndHintOperatorsGoOut) {
  const std::vector<std::pair<unsigned, const char*>> rows = {
      {1, "hstem"},       {3, "vstem"},       {4, "vmoveto"},    {5, "rlineto"},
      {6, "hlineto"},     {7, "vlineto"},     {8, "rrcurveto"},  {14, "endchar"},
      {18, "hstemhm"},    {21, "rmoveto"},    {22, "hmoveto"},   {23, "vstemhm"},
      {24, "rcurveline"}, {25, "rlinecurve"}, {26, "vvcurveto"}, {27, "hhcurveto"},
      {30, "vhcurveto"},  {31, "hvcurveto"},  {0x0C22, "hflex"}, {0x0C23, "flex"},
      {0x0C24, "hflex1"}, {0x0C25, "flex1"},
  };
  for (const auto& [code, word] : rows)
    EXPECT_EQ(interpret(CharStringBuilder().number(5).op(code)), std::string("5 ") + word);
}

// Their operands stay and stand before the next operator: kept.
TEST(Type2Interpreter, OtherOperatorsPushNothingAndLeaveTheirOperands) {
  std::vector<unsigned> codes = {0,      2,      9,      13,     15,     16,     17,
                                 0x0C00, 0x0C08, 0x0C0D, 0x0C14, 0x0C15, 0x0C1D, 0x0C1E};
  for (unsigned second : {1u, 2u, 6u, 7u, 16u, 17u, 19u, 25u, 31u, 33u, 38u, 255u})
    codes.push_back(0x0C00 + second);
  for (unsigned code : codes)
    EXPECT_EQ(interpret(CharStringBuilder().numbers({1, 2}).op(code).numbers({5, 6}).op(21)),
              "1 2 5 6 rmoveto")
        << code;
}

// The operands stay, but no longer count as stems: one stem and one mask byte, not nine and two.
TEST(Type2Interpreter, OperatorsThatPushNothingResetTheDepth) {
  for (unsigned code : {0u, 16u, 0x0C00u, 0x0C14u, 0x0C1Eu}) {
    CharStringBuilder bytes;
    for (int i = 0; i < 16; ++i) bytes.number(1);
    const std::string text =
        interpret(bytes.op(code).numbers({5, 6}).op(18).op(19).raw("\x80\x8C"));
    EXPECT_EQ(text.substr(text.find("5 6")), "5 6 hstemhm hintmask 1 128 1") << code;
  }
}

TEST(Type2Interpreter, FixedNumbersAreReals) {
  EXPECT_EQ(interpret(CharStringBuilder().fixed(0x00018000).fixed(0x00020000).op(21)),
            "1.5 2.0 rmoveto");
}

TEST(Type2Interpreter, SubroutinesAreExpandedWithoutATrace) {
  const FS_CFFStrings local = {CharStringBuilder().number(1).call(29, 0, 1).op(11).str()};
  const FS_CFFStrings global = {CharStringBuilder().number(2).op(21).op(11).str()};
  EXPECT_EQ(interpret(CharStringBuilder().call(10, 0, 1).op(14), global, local),
            "1 2 rmoveto endchar");
}

TEST(Type2Interpreter, BadCallVanishesWithItsNumber) {
  const FS_CFFStrings local = {CharStringBuilder().number(9).str()};
  EXPECT_EQ(interpret(CharStringBuilder().numbers({1, 2, 50}).op(10).op(21), {}, local),
            "1 2 rmoveto");
  EXPECT_EQ(interpret(CharStringBuilder().numbers({1, -108}).op(29).op(22)), "1 hmoveto");
}

// 17 operands and the number of a subroutine that is not there: eight stems and not nine.
TEST(Type2Interpreter, NumberOfACallIsNoStemOperand) {
  CharStringBuilder bytes;
  for (int i = 0; i < 17; ++i) bytes.number(1);
  const std::string text = interpret(bytes.number(500).op(10).op(18).op(19).raw("\x80\x8C"));
  EXPECT_EQ(text.substr(text.find("hstemhm")), "hstemhm hintmask 1 128 1");
}

TEST(Type2Interpreter, CallWithoutANumberIsPassedOver) {
  const FS_CFFStrings local(200, CharStringBuilder().number(9).str());
  EXPECT_EQ(interpret(CharStringBuilder().op(10).numbers({1}).op(22).op(10).op(14), {}, local),
            "1 hmoveto endchar");
}

// A subroutine is read to its end, and so is a charstring behind `endchar`: kept.
TEST(Type2Interpreter, ReturnAndEndcharEndNothing) {
  const FS_CFFStrings local = {
      CharStringBuilder().number(1).op(11).number(2).op(14).number(3).str()};
  EXPECT_EQ(interpret(CharStringBuilder().call(10, 0, 1).op(21).op(14).number(4), {}, local),
            "1 2 endchar 3 rmoveto endchar 4");
}

TEST(Type2Interpreter, MaskBytesFollowTheirCount) {
  EXPECT_EQ(
      interpret(
          CharStringBuilder().numbers({1, 2}).op(18).numbers({3, 4}).op(23).op(19).raw("\xC0").op(
              14)),
      "1 2 hstemhm 3 4 vstemhm hintmask 1 192 endchar");
  EXPECT_EQ(interpret(CharStringBuilder().op(20).op(14)), "cntrmask 0 endchar");
}

// Eight horizontal stems; then the pending pair is assigned to the vertical ones.
TEST(Type2Interpreter, PendingStemsBeforeAMaskAreAssigned) {
  CharStringBuilder bytes;
  for (int i = 0; i < 16; ++i) bytes.number(1);
  bytes.op(18).numbers({1, 2, 3, 4}).op(23).numbers({5, 6}).op(19).raw("\x01\x02").op(14);
  const std::string text = interpret(bytes);
  // 8 horizontal, and 1 in place of 2 vertical ones: 9 hints, 2 bytes.
  EXPECT_EQ(text.substr(text.find("5 6")), "5 6 hintmask 2 1 2 endchar");
  CharStringBuilder horizontal;  // without horizontal stems they become those
  horizontal.numbers({5, 6}).op(20).raw("\x80").op(14);
  EXPECT_EQ(interpret(horizontal), "5 6 cntrmask 1 128 endchar");
}

TEST(Type2Interpreter, CountersGoOnAndAreHandedBack) {
  FS_CharStringTokens tokens;
  HintCounters counters{8, 0, 0};
  WorkBudget budget = glyphBudget();
  const std::string bytes =
      CharStringBuilder().numbers({1, 2}).op(3).op(19).raw("ab").number(7).str();
  ASSERT_TRUE(interpretCharString(bytes, {}, {}, tokens, counters, budget));
  EXPECT_EQ(textOf(tokens), "1 2 vstem hintmask 2 97 98 7");
  EXPECT_EQ(counters.hStems, 8);
  EXPECT_EQ(counters.vStems, 1);
  EXPECT_EQ(counters.stackDepth, 1);
}

TEST(Type2Interpreter, MaskCutShortPushesWhatIsThere) {
  CharStringBuilder bytes;
  for (int i = 0; i < 18; ++i) bytes.number(1);
  const std::string text = interpret(bytes.op(18).op(19).raw("\x07"));
  EXPECT_EQ(text.substr(text.find("hintmask")), "hintmask 2 7");
}

struct ArithmeticCase {
  const char* before;
  const char* after;
};

std::string applied(const std::string& line) {
  FS_CharStringTokens tokens = tokensOf(line);
  const Keyword op = embed::keywordOf(tokens.back());
  tokens.pop_back();
  applyArithmetic(op, tokens.size(), tokens);
  return textOf(tokens);
}

TEST(Type2Arithmetic, GivesTheResultsOfTheTable) {
  const std::vector<ArithmeticCase> cases = {
      {"9 2 3 and", "9 1"},
      {"1 2 and", "1"},  // no bits in common
      {"2 0 and", "0"},
      {"0 2 and", "0"},
      {"0 0 or", "0"},
      {"0 3 or", "1"},
      {"3 0 or", "1"},
      {"0 not", "1"},
      {"7 not", "0"},
      {"-7 abs", "7"},
      {"7 abs", "7"},
      {"2 3 add", "5"},
      {"2 3 sub", "-1"},
      {"7 2 div", "3"},
      {"-7 2 div", "-3"},
      {"7 0 div", "0"},
      {"7 neg", "-7"},
      {"3 3 eq", "1"},
      {"3 4 eq", "0"},
      {"3 4 drop", "3"},
      {"6 7 mul", "42"},
      {"3 4 exch", "4 3"},
      {"3 dup", "3 3"},
      {"9 sqrt", "3.0"},
      {"1 sqrt", "1.0"},
      {"0 sqrt", "0.0"},
      {"-4 sqrt", "0.0"},
      {"10 20 2 1 ifelse", "10"},
      {"10 20 1 2 ifelse", "20"},
      {"10 20 1 1 ifelse", "20"},
  };
  for (const ArithmeticCase& test : cases)
    EXPECT_EQ(applied(test.before), test.after) << test.before;
}

TEST(Type2Arithmetic, WorksOnIntegerValuesAndPushesIntegers) {
  EXPECT_EQ(applied("2.7 1.6 add"), "3");
  EXPECT_EQ(applied("1.7 1.2 eq"), "1");
  EXPECT_EQ(applied("0.5 not"), "1");
  EXPECT_EQ(applied("10 20 1.7 1.2 ifelse"), "20");
  EXPECT_EQ(applied("10.5 20 2 1 ifelse"), "10");
  EXPECT_EQ(applied("-2.5 abs"), "2");
  EXPECT_EQ(applied("0.9 0.9 or"), "0");
  EXPECT_EQ(applied("0.9 sqrt"), "0.0");
  EXPECT_EQ(applied("4.9 sqrt"), "2.0");
}

TEST(Type2Arithmetic, MovesTokensInTheirKinds) {
  EXPECT_EQ(applied("2.5 dup"), "2.5 2.5");
  EXPECT_EQ(applied("2.5 1 exch"), "1 2.5");
}

TEST(Type2Arithmetic, WrapsAt32Bits) {
  EXPECT_EQ(applied("2147483647 1 add"), "-2147483648");
  EXPECT_EQ(applied("-2147483648 1 sub"), "2147483647");
  EXPECT_EQ(applied("65536 65536 mul"), "0");
  EXPECT_EQ(applied("-2147483648 neg"), "-2147483648");
  EXPECT_EQ(applied("-2147483648 abs"), "-2147483648");
  EXPECT_EQ(applied("-2147483648 -1 div"), "-2147483648");
}

// The format's rule is the other way round: kept.
TEST(Type2Arithmetic, IfelseIsReversed) {
  EXPECT_EQ(applied("1 2 5 6 ifelse"), "2");
  EXPECT_EQ(applied("1 2 6 5 ifelse"), "1");
}

TEST(Type2Arithmetic, TooFewOperandsChangeNothing) {
  for (const char* line : {"1 add", "1 sub", "1 div", "1 mul", "1 eq", "1 and", "1 or", "1 exch"})
    EXPECT_EQ(applied(line), "1") << line;
  for (const char* line : {"not", "abs", "neg", "drop", "sqrt", "dup"})
    EXPECT_EQ(applied(line), "");
  EXPECT_EQ(applied("1 2 3 ifelse"), "1 2 3");
}

TEST(Type2Arithmetic, RandomIsARealBelowOne) {
  FS_CharStringTokens tokens;
  EXPECT_EQ(applyArithmetic(Keyword::kRandom, 0, tokens), 1);
  ASSERT_TRUE(tokens.at(0).isReal());
  EXPECT_GE(tokens[0].getDoubleValue(), 0.0);
  EXPECT_LT(tokens[0].getDoubleValue(), 1.0);
  FS_CharStringTokens other;
  applyArithmetic(Keyword::kRandom, 0, other);
  EXPECT_TRUE(tokens[0] != other[0]);
}

TEST(Type2Arithmetic, DepthFollows) {
  const std::vector<std::pair<const char*, int>> rows = {
      {"1 1 and", -1},        {"1 1 or", -1},  {"1 not", 0},  {"1 abs", 0},   {"1 1 add", -1},
      {"1 1 sub", -1},        {"1 1 div", -1}, {"1 neg", 0},  {"1 1 eq", -1}, {"1 drop", -1},
      {"1 1 1 1 ifelse", -3}, {"1 1 mul", -1}, {"1 sqrt", 0}, {"1 dup", 1},   {"1 1 exch", 0}};
  for (const auto& [line, change] : rows) {
    FS_CharStringTokens tokens = tokensOf(line);
    const Keyword op = embed::keywordOf(tokens.back());
    tokens.pop_back();
    EXPECT_EQ(applyArithmetic(op, tokens.size(), tokens), change) << line;
  }
}

TEST(Type2Interpreter, ArithmeticDoesNotReachBehindTheLastKeyword) {
  EXPECT_EQ(interpret(CharStringBuilder().numbers({1, 2}).op(21).number(3).op(0x0C0A).op(22)),
            "1 2 rmoveto 3 hmoveto");
  // The count and the bytes of a mask are no operands.
  EXPECT_EQ(
      interpret(CharStringBuilder().numbers({1, 2}).op(18).op(19).raw("\x80").op(0x0C12).op(14)),
      "1 2 hstemhm hintmask 1 128 endchar");
}

TEST(Type2Interpreter, DepthOfArithmeticCountsForStems) {
  // 1 2 3 4 with one `drop` and one `dup`: still two stems.
  const std::string text = interpret(CharStringBuilder()
                                         .numbers({1, 2, 3, 4})
                                         .op(0x0C12)
                                         .op(0x0C1B)
                                         .op(18)
                                         .op(19)
                                         .raw("\x80")
                                         .op(14));
  EXPECT_EQ(text, "1 2 3 3 hstemhm hintmask 1 128 endchar");
}

TEST(Type2Interpreter, BombsAreRefused) {
  const FS_CFFStrings endless = {CharStringBuilder().call(10, 0, 1).str()};
  EXPECT_EQ(interpret(CharStringBuilder().call(10, 0, 1), {}, endless), "false");
  FS_CFFStrings doubling;  // each calls the next twice: 2^40 numbers
  for (int i = 0; i < 40; ++i)
    doubling.push_back(CharStringBuilder().call(10, i + 1, 41).call(10, i + 1, 41).str());
  doubling.push_back(CharStringBuilder().op(2).str());
  FS_CharStringTokens tokens;
  HintCounters counters;
  WorkBudget budget(100000);
  const std::string bytes = CharStringBuilder().call(10, 0, 41).str();
  EXPECT_FALSE(interpretCharString(bytes, {}, doubling, tokens, counters, budget));
}

TEST(Type2Interpreter, SurvivesCutsAndDamage) {
  CharStringBuilder bytes;
  bytes.numbers({1, 2, 3, 4}).op(18).numbers({300, -300}).op(19).raw("\xF0").fixed(0x12345678);
  bytes.call(10, 0, 1).op(0x0C0A).op(21).op(14);
  const FS_CFFStrings local = {CharStringBuilder().number(7).op(0x0C1B).op(11).str()};
  qxtest::forEachDamage(bytes.str(), [&](const std::string& damaged) {
    EXPECT_NE(interpret(damaged, {}, local), "false");
  });
}

}  // namespace
}  // namespace QXFontService_NS::charstring
