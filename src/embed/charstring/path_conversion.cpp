#include "embed/charstring/glyph_conversion.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;
using QXCommonNS::QXValue;

void GlyphConversion::move(const Value& dx, const Value& dy, Keyword op, Operands written) {
  advance(dx, dy);
  emit(written, op);
}

bool GlyphConversion::rmoveto() {
  if (operands_.size() != 2) return false;
  move(operands_[0], operands_[1], Keyword::kRmoveto, operands_);
  return true;
}

bool GlyphConversion::moveOneWay(bool horizontal) {
  if (operands_.size() != 1) return false;
  if (horizontal) {
    move(operands_[0], QXValue(0), Keyword::kHmoveto, operands_);
  } else {
    move(QXValue(0), operands_[0], Keyword::kVmoveto, operands_);
  }
  return true;
}

void GlyphConversion::line(const Value& dx, const Value& dy) {
  emit({dx, dy}, Keyword::kRlineto);
  advance(dx, dy);
}

bool GlyphConversion::lines(Operands operands) {
  if (operands.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < operands.size(); i += 2) line(operands[i], operands[i + 1]);
  return true;
}

bool GlyphConversion::alternatingLines(bool horizontal) {
  for (const Value& delta : operands_) {
    emit({delta}, horizontal ? Keyword::kHlineto : Keyword::kVlineto);
    if (horizontal) {
      advance(delta, QXValue(0));
    } else {
      advance(QXValue(0), delta);
    }
    horizontal = !horizontal;
  }
  return true;
}

void GlyphConversion::curve(Operands six) {
  emit(six, Keyword::kRrcurveto);
  for (std::size_t i = 0; i < 6; i += 2) advance(six[i], six[i + 1]);
}

void GlyphConversion::curve(std::initializer_list<Value> six) {
  curve(Operands(six.begin(), six.size()));
}

bool GlyphConversion::curves(Operands operands) {
  if (operands.size() % 6 != 0) return false;
  for (std::size_t i = 0; i < operands.size(); i += 6) curve(operands.subspan(i, 6));
  return true;
}

// `hhcurveto` and `vvcurveto`: curves that begin and end in one direction; an extra first operand
// is the other coordinate of the first point.
bool GlyphConversion::sameWayCurves(bool horizontal) {
  if (operands_.size() % 4 > 1) return false;
  QXValue cross(0);
  std::size_t i = operands_.size() % 4;
  if (i == 1) cross = operands_[0];
  for (; i < operands_.size(); i += 4) {
    const Operands four = operands_.subspan(i, 4);
    if (horizontal) {
      curve({four[0], cross, four[1], four[2], four[3], QXValue(0)});
    } else {
      curve({cross, four[0], four[1], four[2], QXValue(0), four[3]});
    }
    cross = QXValue(0);
  }
  return true;
}

// `hvcurveto` and `vhcurveto`: curves that begin in one direction and end in the other; an extra
// last operand is the coordinate of the last point that would be 0.
bool GlyphConversion::alternatingCurves(bool horizontal) {
  if (operands_.size() % 4 > 1) return false;
  for (std::size_t i = 0; i + 4 <= operands_.size(); i += 4) {
    const Operands four = operands_.subspan(i, 4);
    const QXValue last = i + 5 == operands_.size() ? operands_[i + 4] : QXValue(0);
    if (horizontal) {
      curve({four[0], QXValue(0), four[1], four[2], last, four[3]});
    } else {
      curve({QXValue(0), four[0], four[1], four[2], four[3], last});
    }
    horizontal = !horizontal;
  }
  return true;
}

bool GlyphConversion::rcurveline() {
  if (operands_.size() < 2 || !curves(operands_.first(operands_.size() - 2))) return false;
  return lines(operands_.last(2));
}

bool GlyphConversion::rlinecurve() {
  if (operands_.size() < 6 || !lines(operands_.first(operands_.size() - 6))) return false;
  return curves(operands_.last(6));
}

}  // namespace QXFontService_NS::charstring
