#include "embed/charstring/arithmetic.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "qxcommon/uuid.h"

namespace QXFontService_NS::charstring {

using embed::Keyword;
using QXCommonNS::QXValue;

namespace {

using Wide = std::int64_t;

QXValue wrapped(Wide value) {
  return QXValue(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

QXValue truth(bool value) {
  return QXValue(value ? 1 : 0);
}

Wide integerOf(const QXValue& value) {
  return value.getIntegerValue();
}

QXValue unary(Keyword op, const QXValue& operand) {
  const Wide value = integerOf(operand);
  switch (op) {
    case Keyword::kNot:
      return truth(value == 0);
    case Keyword::kAbs:
      return wrapped(value < 0 ? -value : value);
    case Keyword::kNeg:
      return wrapped(-value);
    default:  // sqrt
      return QXValue(value > 0 ? std::sqrt(static_cast<double>(value)) : 0.0);
  }
}

QXValue binary(Keyword op, Wide lower, Wide upper) {
  switch (op) {
    case Keyword::kAnd:
      return truth(lower != 0 && upper != 0);
    case Keyword::kOr:
      return truth(lower != 0 || upper != 0);
    case Keyword::kAdd:
      return wrapped(lower + upper);
    case Keyword::kSub:
      return wrapped(lower - upper);
    case Keyword::kMul:
      return wrapped(lower * upper);
    case Keyword::kDiv:
      return upper == 0 ? QXValue(0) : wrapped(lower / upper);
    default:  // eq
      return truth(lower == upper);
  }
}

// The first result where the first test value is greater, and not where it is at most the second:
// the reverse of the format's rule, kept.
QXValue ifelse(const FS_CharStringTokens& tokens) {
  const QXValue* four = &tokens[tokens.size() - 4];
  return wrapped(integerOf(four[2]) > integerOf(four[3]) ? integerOf(four[0]) : integerOf(four[1]));
}

void replaceTop(FS_CharStringTokens& tokens, std::size_t count, const QXValue& result) {
  tokens.resize(tokens.size() - count);
  tokens.push_back(result);
}

std::size_t operandsOf(Keyword op) {
  switch (op) {
    case Keyword::kRandom:
      return 0;
    case Keyword::kNot:
    case Keyword::kAbs:
    case Keyword::kNeg:
    case Keyword::kSqrt:
    case Keyword::kDrop:
    case Keyword::kDup:
      return 1;
    case Keyword::kIfelse:
      return 4;
    default:
      return 2;
  }
}

// An identifier is what the system draws random numbers from.
QXValue random() {
  return QXValue(std::ldexp(static_cast<double>(QXCommonNS::QXUUID().getFirstWord()), -32));
}

}  // namespace

int applyArithmetic(Keyword op, std::size_t operands, FS_CharStringTokens& tokens) {
  if (operands < operandsOf(op)) return 0;
  switch (op) {
    case Keyword::kRandom:
      tokens.push_back(random());
      return 1;
    case Keyword::kDup:
      tokens.push_back(QXValue(tokens.back()));
      return 1;
    case Keyword::kDrop:
      tokens.pop_back();
      return -1;
    case Keyword::kExch:
      std::swap(tokens[tokens.size() - 1], tokens[tokens.size() - 2]);
      return 0;
    case Keyword::kIfelse:
      replaceTop(tokens, 4, ifelse(tokens));
      return -3;
    default:
      break;
  }
  if (operandsOf(op) == 1) {
    replaceTop(tokens, 1, unary(op, tokens.back()));
    return 0;
  }
  const Wide lower = integerOf(tokens[tokens.size() - 2]);
  replaceTop(tokens, 2, binary(op, lower, integerOf(tokens.back())));
  return -1;
}

}  // namespace QXFontService_NS::charstring
