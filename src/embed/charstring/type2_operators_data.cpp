#include <array>
#include <cstddef>

#include "embed/charstring/type2_operators.h"

namespace QXFontService_NS::charstring {
namespace {

using embed::Keyword;
using Kind = OperatorKind;

struct Row {
  unsigned code;
  Type2Operator op;
};

constexpr Row kRows[] = {
    {1, {Keyword::kHstem, Kind::hstem}},
    {3, {Keyword::kVstem, Kind::vstem}},
    {4, {Keyword::kVmoveto, Kind::path}},
    {5, {Keyword::kRlineto, Kind::path}},
    {6, {Keyword::kHlineto, Kind::path}},
    {7, {Keyword::kVlineto, Kind::path}},
    {8, {Keyword::kRrcurveto, Kind::path}},
    {10, {Keyword::kCallsubr, Kind::callsubr}},
    {11, {Keyword::kReturn, Kind::returns}},
    {14, {Keyword::kEndchar, Kind::endchar}},
    {16, {Keyword::kBlend, Kind::dropped}},
    {18, {Keyword::kHstemhm, Kind::hstem}},
    {19, {Keyword::kHintmask, Kind::mask}},
    {20, {Keyword::kCntrmask, Kind::mask}},
    {21, {Keyword::kRmoveto, Kind::path}},
    {22, {Keyword::kHmoveto, Kind::path}},
    {23, {Keyword::kVstemhm, Kind::vstem}},
    {24, {Keyword::kRcurveline, Kind::path}},
    {25, {Keyword::kRlinecurve, Kind::path}},
    {26, {Keyword::kVvcurveto, Kind::path}},
    {27, {Keyword::kHhcurveto, Kind::path}},
    {29, {Keyword::kCallgsubr, Kind::callgsubr}},
    {30, {Keyword::kVhcurveto, Kind::path}},
    {31, {Keyword::kHvcurveto, Kind::path}},
    {0x0C00, {Keyword::kDotsection, Kind::dropped}},
    {0x0C03, {Keyword::kAnd, Kind::arithmetic}},
    {0x0C04, {Keyword::kOr, Kind::arithmetic}},
    {0x0C05, {Keyword::kNot, Kind::arithmetic}},
    {0x0C08, {Keyword::kStore, Kind::dropped}},
    {0x0C09, {Keyword::kAbs, Kind::arithmetic}},
    {0x0C0A, {Keyword::kAdd, Kind::arithmetic}},
    {0x0C0B, {Keyword::kSub, Kind::arithmetic}},
    {0x0C0C, {Keyword::kDiv, Kind::arithmetic}},
    {0x0C0D, {Keyword::kLoad, Kind::dropped}},
    {0x0C0E, {Keyword::kNeg, Kind::arithmetic}},
    {0x0C0F, {Keyword::kEq, Kind::arithmetic}},
    {0x0C12, {Keyword::kDrop, Kind::arithmetic}},
    {0x0C14, {Keyword::kPut, Kind::dropped}},
    {0x0C15, {Keyword::kGet, Kind::dropped}},
    {0x0C16, {Keyword::kIfelse, Kind::arithmetic}},
    {0x0C17, {Keyword::kRandom, Kind::arithmetic}},
    {0x0C18, {Keyword::kMul, Kind::arithmetic}},
    {0x0C1A, {Keyword::kSqrt, Kind::arithmetic}},
    {0x0C1B, {Keyword::kDup, Kind::arithmetic}},
    {0x0C1C, {Keyword::kExch, Kind::arithmetic}},
    {0x0C1D, {Keyword::kIndex, Kind::dropped}},
    {0x0C1E, {Keyword::kRoll, Kind::dropped}},
    {0x0C22, {Keyword::kHflex, Kind::path}},
    {0x0C23, {Keyword::kFlex, Kind::path}},
    {0x0C24, {Keyword::kHflex1, Kind::path}},
    {0x0C25, {Keyword::kFlex1, Kind::path}},
};

using Table = std::array<Type2Operator, 256>;

constexpr Table makeTable(unsigned page) {
  Table table{};
  for (const Row& row : kRows)
    if (row.code >> 8 == page) table[row.code & 0xFF] = row.op;
  return table;
}

constexpr Table kOneByte = makeTable(0);
constexpr Table kTwoByte = makeTable(12);

}  // namespace

Type2Operator type2Operator(unsigned code) {
  return code > 0xFF ? kTwoByte[code & 0xFF] : kOneByte[code];
}

}  // namespace QXFontService_NS::charstring
