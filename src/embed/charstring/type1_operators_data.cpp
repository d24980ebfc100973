#include "embed/charstring/type1_operators.h"

namespace QXFontService_NS::charstring {
namespace {

using embed::Keyword;

struct Row {
  Keyword keyword;
  std::string_view bytes;
};

constexpr Row kRows[] = {
    {Keyword::kHstem, "\x01"},
    {Keyword::kVstem, "\x03"},
    {Keyword::kVmoveto, "\x04"},
    {Keyword::kRlineto, "\x05"},
    {Keyword::kHlineto, "\x06"},
    {Keyword::kVlineto, "\x07"},
    {Keyword::kRrcurveto, "\x08"},
    {Keyword::kClosepath, "\x09"},
    {Keyword::kCallsubr, "\x0A"},
    {Keyword::kReturn, "\x0B"},
    {Keyword::kHsbw, "\x0D"},
    {Keyword::kEndchar, "\x0E"},
    {Keyword::kRmoveto, "\x15"},
    {Keyword::kHmoveto, "\x16"},
    {Keyword::kVhcurveto, "\x1E"},
    {Keyword::kHvcurveto, "\x1F"},
    {Keyword::kDotsection, {"\x0C\x00", 2}},
    {Keyword::kVstem3, "\x0C\x01"},
    {Keyword::kHstem3, "\x0C\x02"},
    {Keyword::kSeac, "\x0C\x06"},
    {Keyword::kSbw, "\x0C\x07"},
    {Keyword::kDiv, "\x0C\x0C"},
    {Keyword::kCallothersubr, "\x0C\x10"},
    {Keyword::kPop, "\x0C\x11"},
    {Keyword::kSetcurrentpoint, "\x0C\x21"},
};

}  // namespace

std::string_view type1Operator(Keyword keyword) {
  for (const Row& row : kRows)
    if (row.keyword == keyword) return row.bytes;
  return {};
}

}  // namespace QXFontService_NS::charstring
