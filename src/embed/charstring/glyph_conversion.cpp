#include "embed/charstring/glyph_conversion.h"

#include <cstdint>

#include "common/limits.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;

namespace {

/// Where an operator that comes first has its width.
enum class WidthRule { none, odd, even, always };

WidthRule widthRule(Keyword op) {
  switch (op) {
    case Keyword::kHmoveto:
    case Keyword::kVmoveto:
      return WidthRule::even;
    case Keyword::kHstem:
    case Keyword::kHstemhm:
    case Keyword::kVstem:
    case Keyword::kVstemhm:
    case Keyword::kRmoveto:
      return WidthRule::odd;
    case Keyword::kEndchar:
      return WidthRule::always;  // a bare endchar is refused: required
    default:
      return WidthRule::none;
  }
}

bool hasWidth(WidthRule rule, std::size_t operands) {
  return rule == WidthRule::always || (operands % 2 == 0) == (rule == WidthRule::even);
}

}  // namespace

bool GlyphConversion::run() {
  std::size_t begin = 0;
  while (next_ < tokens_.size()) {
    const Value& token = tokens_[next_++];
    if (!token.isName()) continue;
    operands_ = Operands(tokens_).subspan(begin, next_ - 1 - begin);
    if (!takeOperator(embed::keywordOf(token))) return false;
    begin = next_;  // mask bytes were consumed
  }
  writeCounters();
  return true;
}

bool GlyphConversion::takeOperator(Keyword op) {
  if (previous_ == Keyword::kNone && !writeWidth(op)) return false;
  if (!convert(op)) return false;
  previous_ = op;
  return out_.size() + masked_ <= QXCommonNS::limits::kMostCharStringTokens;
}

bool GlyphConversion::writeWidth(Keyword op) {
  const WidthRule rule = widthRule(op);
  if (rule == WidthRule::none) return false;
  Value width(glyph_.defaultWidthX);
  if (hasWidth(rule, operands_.size())) {
    if (operands_.empty()) return false;
    width = Value(glyph_.nominalWidthX) + operands_.front();
    operands_ = operands_.subspan(1);
  }
  emit({Value(0), width}, Keyword::kHsbw);
  return true;
}

bool GlyphConversion::convert(Keyword op) {
  switch (op) {
    case Keyword::kHstem:
    case Keyword::kHstemhm:
      return stems(operands_, 0);
    case Keyword::kVstem:
    case Keyword::kVstemhm:
      return stems(operands_, 1);
    case Keyword::kHintmask:
      return hintmask();
    case Keyword::kCntrmask:
      return cntrmask();
    case Keyword::kEndchar:
      emit(Operands(), op);
      return operands_.empty();
    default:
      return convertPath(op);
  }
}

bool GlyphConversion::convertPath(Keyword op) {
  switch (op) {
    case Keyword::kRmoveto:
      return rmoveto();
    case Keyword::kHmoveto:
    case Keyword::kVmoveto:
      return moveOneWay(op == Keyword::kHmoveto);
    case Keyword::kRlineto:
      return lines(operands_);
    case Keyword::kHlineto:
    case Keyword::kVlineto:
      return alternatingLines(op == Keyword::kHlineto);
    case Keyword::kRrcurveto:
      return curves(operands_.subspan(operands_.size() % 6));
    case Keyword::kHhcurveto:
    case Keyword::kVvcurveto:
      return sameWayCurves(op == Keyword::kHhcurveto);
    case Keyword::kHvcurveto:
    case Keyword::kVhcurveto:
      return alternatingCurves(op == Keyword::kHvcurveto);
    case Keyword::kRcurveline:
      return rcurveline();
    case Keyword::kRlinecurve:
      return rlinecurve();
    case Keyword::kFlex:
      return flex();
    case Keyword::kFlex1:
      return flex1();
    case Keyword::kHflex:
      return hflex();
    case Keyword::kHflex1:
      return hflex1();
    default:
      return false;
  }
}

void GlyphConversion::emit(std::initializer_list<Value> numbers, Keyword op) {
  emit(Operands(numbers.begin(), numbers.size()), op);
}

void GlyphConversion::emit(Operands numbers, Keyword op) {
  out_.insert(out_.end(), numbers.begin(), numbers.end());
  out_.push_back(embed::keywordValue(op));
}

// Whole units: the point is written only as the end of a flex. It wraps like other file numbers.
void GlyphConversion::advance(const Value& dx, const Value& dy) {
  const auto add = [](int point, const Value& delta) {
    return static_cast<int>(static_cast<std::uint32_t>(point) +
                            static_cast<std::uint32_t>(delta.getIntegerValue()));
  };
  glyph_.x = add(glyph_.x, dx);
  glyph_.y = add(glyph_.y, dy);
}

}  // namespace QXFontService_NS::charstring
