#include <utility>

#include "embed/charstring/glyph_conversion.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

constexpr int kFlexHeight = 50;  // always, whatever the font says: required

QXValue absolute(const QXValue& value) {
  return value < QXValue(0) ? -value : value;
}

}  // namespace

bool GlyphConversion::flex() {
  if (operands_.size() < 13) return false;
  return curves(operands_.last(13).first(12));  // the flex depth is dropped
}

bool GlyphConversion::flex1() {
  if (operands_.size() < 11) return false;
  const Operands d = operands_.last(11);
  QXValue dx(0);
  QXValue dy(0);
  for (std::size_t i = 0; i < 10; i += 2) {
    dx += d[i];
    dy += d[i + 1];
  }
  const bool endsHorizontal = absolute(dy) < absolute(dx);
  curve(d.first(6));
  curve({d[6], d[7], d[8], d[9], endsHorizontal ? d[10] : -dx, endsHorizontal ? -dy : d[10]});
  return true;
}

bool GlyphConversion::hflex() {
  if (operands_.size() < 7) return false;
  const Operands d = operands_.last(7);  // dx1 dx2 dy2 dx3 dx4 dx5 dx6
  const QXValue zero(0);
  const QXValue toReference = d[0] + d[1] + d[3];
  flexMoves({{toReference, zero},
             {d[0] - toReference, zero},
             {d[1], d[2]},
             {d[3], zero},
             {d[4], zero},
             {d[5], -d[2]},
             {d[6], zero}});
  return true;
}

bool GlyphConversion::hflex1() {
  if (operands_.size() < 9) return false;
  const Operands d = operands_.last(9);  // dx1 dy1 dx2 dy2 dx3 dx4 dx5 dy5 dx6
  const QXValue zero(0);
  const QXValue toReference = d[0] + d[2] + d[4];
  flexMoves({{toReference, zero},
             {d[0] - toReference, d[1]},
             {d[2], d[3]},
             {d[4], zero},
             {d[5], zero},
             {d[6], d[7]},
             {d[8], -(d[1] + d[3] + d[7])}});
  return true;
}

// The flex of Type 1: the reference point and the six points of two curves as moves that Subrs
// gather, then height and end point.
void GlyphConversion::flexMoves(std::initializer_list<std::pair<Value, Value>> moves) {
  emit({QXValue(1)}, Keyword::kCallsubr);
  for (const auto& [dx, dy] : moves) {
    emit({dx, dy}, Keyword::kRmoveto);
    emit({QXValue(2)}, Keyword::kCallsubr);
    advance(dx, dy);
  }
  emit({QXValue(kFlexHeight), QXValue(glyph_.x), QXValue(glyph_.y), QXValue(0)},
       Keyword::kCallsubr);
}

}  // namespace QXFontService_NS::charstring
