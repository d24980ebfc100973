#include "embed/charstring/flat_decoder.h"

#include <gtest/gtest.h>

#include "embed/charstring/token_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::charstring {
namespace {

using qxtest::CharStringBuilder;

std::string decode(const CharStringBuilder& bytes, const FS_CFFStrings& global = {},
                   const FS_CFFStrings& local = {}) {
  FS_CharStringTokens tokens;
  int stackDepth = 0;
  int hintCount = 0;
  if (!decodeCharStringFlat(bytes.str(), global, local, stackDepth, hintCount, tokens))
    return "false";
  return textOf(tokens);
}

struct OperatorWord {
  unsigned code;
  const char* word;
};

constexpr OperatorWord kWords[] = {
    {1, "hstem"},           {3, "vstem"},       {4, "vmoveto"},     {5, "rlineto"},
    {6, "hlineto"},         {7, "vlineto"},     {8, "rrcurveto"},   {10, "callsubr"},
    {11, "return"},         {14, "endchar"},    {16, "blend"},      {18, "hstemhm"},
    {19, "hintmask"},       {20, "cntrmask"},   {21, "rmoveto"},    {22, "hmoveto"},
    {23, "vstemhm"},        {24, "rcurveline"}, {25, "rlinecurve"}, {26, "vvcurveto"},
    {27, "hhcurveto"},      {29, "callgsubr"},  {30, "vhcurveto"},  {31, "hvcurveto"},
    {0x0C00, "dotsection"}, {0x0C03, "and"},    {0x0C04, "or"},     {0x0C05, "not"},
    {0x0C08, "store"},      {0x0C09, "abs"},    {0x0C0A, "add"},    {0x0C0B, "sub"},
    {0x0C0C, "div"},        {0x0C0D, "load"},   {0x0C0E, "neg"},    {0x0C0F, "eq"},
    {0x0C12, "drop"},       {0x0C14, "put"},    {0x0C15, "get"},    {0x0C16, "ifelse"},
    {0x0C17, "random"},     {0x0C18, "mul"},    {0x0C1A, "sqrt"},   {0x0C1B, "dup"},
    {0x0C1C, "exch"},       {0x0C1D, "index"},  {0x0C1E, "roll"},   {0x0C22, "hflex"},
    {0x0C23, "flex"},       {0x0C24, "hflex1"}, {0x0C25, "flex1"},
};

std::string wordOf(unsigned code) {
  for (const OperatorWord& row : kWords)
    if (row.code == code) return row.word;
  return "?";
}

TEST(FlatDecoder, EveryOperatorGivesItsWordOrTheReservedOne) {
  for (unsigned code = 0; code < 32; ++code) {
    if (code == 12 || code == 28) continue;
    EXPECT_EQ(decode(CharStringBuilder().op(code)), wordOf(code)) << code;
  }
  for (unsigned second = 0; second < 256; ++second) {
    const unsigned code = 0x0C00 + second;
    EXPECT_EQ(decode(CharStringBuilder().op(code)), wordOf(code)) << code;
  }
}

TEST(FlatDecoder, WorksNothingOut) {
  EXPECT_EQ(decode(CharStringBuilder().numbers({3, 4}).op(0x0C0A).number(5).op(0x0C12)),
            "3 4 add 5 drop");
}

TEST(FlatDecoder, NumbersOfFourBytesAreTheirRawBits) {
  EXPECT_EQ(decode(CharStringBuilder().fixed(0x00018000)), "98304");
}

TEST(FlatDecoder, CallsLeaveNumberAndWordBeforeTheSubroutine) {
  const FS_CFFStrings local = {CharStringBuilder().number(7).op(11).number(8).str()};
  const FS_CFFStrings global = {CharStringBuilder().number(9).str()};
  EXPECT_EQ(decode(CharStringBuilder().number(1).call(10, 0, 1).op(21), global, local),
            "1 -107 callsubr 7 return 8 rmoveto");
  EXPECT_EQ(decode(CharStringBuilder().call(29, 0, 1).op(21), global, local),
            "-107 callgsubr 9 rmoveto");
}

TEST(FlatDecoder, BadCallsLeaveNumberAndWordToo) {
  EXPECT_EQ(decode(CharStringBuilder().number(5).op(10).op(29)), "5 callsubr callgsubr");
}

TEST(FlatDecoder, EndcharEndsItsOwnLevel) {
  const FS_CFFStrings local = {CharStringBuilder().op(14).number(7).str()};
  EXPECT_EQ(decode(CharStringBuilder().call(10, 0, 1).number(2).op(14).number(3), {}, local),
            "-107 callsubr endchar 2 endchar");
}

TEST(FlatDecoder, MasksArePassedOver) {
  EXPECT_EQ(decode(CharStringBuilder().numbers({1, 2, 3, 4}).op(18).op(19).raw("\xC0").op(14)),
            "1 2 3 4 hstemhm hintmask endchar");
}

TEST(FlatDecoder, PendingOperandsBeforeAMaskAddToTheHints) {
  CharStringBuilder nine;  // 8 horizontal stems and one pending vertical: two mask bytes
  for (int i = 0; i < 16; ++i) nine.number(i);
  nine.op(18).numbers({1, 2}).op(19).raw("\x0E\x0E").op(14);
  EXPECT_EQ(decode(nine), "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 hstemhm 1 2 hintmask endchar");
}

TEST(FlatDecoder, AtLeastOneMaskByteIsPassedOver) {
  EXPECT_EQ(decode(CharStringBuilder().op(20).raw("\x0E").op(21)), "cntrmask rmoveto");
}

// Operands before the call of the subroutine that declares the stems are not counted: kept.
TEST(FlatDecoder, CallClearsTheDepth) {
  const FS_CFFStrings local = {CharStringBuilder().op(18).str()};
  CharStringBuilder bytes;
  for (int i = 0; i < 18; ++i) bytes.number(1);
  bytes.call(10, 0, 1).op(19).raw("\x0E\x0E").op(21);
  const std::string text = decode(bytes, {}, local);
  EXPECT_EQ(text.substr(text.find("hstemhm")), "hstemhm hintmask endchar");
}

// So are those that a subroutine leaves: its `return` is a keyword as well. Kept.
TEST(FlatDecoder, ReturnClearsTheDepth) {
  CharStringBuilder numbers;
  for (int i = 0; i < 18; ++i) numbers.number(1);
  const FS_CFFStrings local = {numbers.op(11).str()};
  const std::string text =
      decode(CharStringBuilder().call(10, 0, 1).op(18).op(19).raw("\x0E\x0E").op(21), {}, local);
  EXPECT_EQ(text.substr(text.find("hstemhm")), "hstemhm hintmask endchar");
}

// The number before another operator is not that of a call.
TEST(FlatDecoder, CallWithoutANumberRunsNothing) {
  const FS_CFFStrings local(1, CharStringBuilder().number(7).str());
  EXPECT_EQ(decode(CharStringBuilder().number(-107).op(22).op(10).op(14), {}, local),
            "-107 hmoveto callsubr endchar");
  EXPECT_EQ(decode(CharStringBuilder().number(-107).op(22).op(29).op(14), local),
            "-107 hmoveto callgsubr endchar");
}

TEST(FlatDecoder, CountersGoOnFromWhatTheyHold) {
  FS_CharStringTokens tokens;
  int stackDepth = 2;
  int hintCount = 8;
  const std::string bytes = CharStringBuilder().op(19).raw("\x0E\x0E").number(1).str();
  ASSERT_TRUE(decodeCharStringFlat(bytes, {}, {}, stackDepth, hintCount, tokens));
  EXPECT_EQ(textOf(tokens), "hintmask 1");
  EXPECT_EQ(hintCount, 9);
  EXPECT_EQ(stackDepth, 1);
}

TEST(FlatDecoder, EndlessRecursionIsRefused) {
  const FS_CFFStrings local = {CharStringBuilder().call(10, 0, 1).str()};
  EXPECT_EQ(decode(CharStringBuilder().call(10, 0, 1), {}, local), "false");
}

}  // namespace
}  // namespace QXFontService_NS::charstring
