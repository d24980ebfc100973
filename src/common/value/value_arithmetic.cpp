#include <cstdint>

#include "common/value/value_body.h"

namespace QXCommonNS {
namespace {

/// The low 32 bits: sums of charstring operands wrap.
int wrap(std::int64_t number) {
  return static_cast<int>(static_cast<std::uint32_t>(number));
}

std::int64_t wide(const QXValue& value) {
  return value.getIntegerValue();
}

}  // namespace

QXValue QXValue::operator+(const QXValue& other) const {
  if (isReal() || other.isReal()) return QXValue(getDoubleValue() + other.getDoubleValue());
  return QXValue(wrap(wide(*this) + wide(other)));
}

QXValue QXValue::operator-(const QXValue& other) const {
  if (isReal() || other.isReal()) return QXValue(getDoubleValue() - other.getDoubleValue());
  return QXValue(wrap(wide(*this) - wide(other)));
}

QXValue QXValue::operator-() const {
  if (isReal()) return QXValue(-getDoubleValue());
  return QXValue(wrap(-wide(*this)));
}

QXValue& QXValue::operator+=(const QXValue& other) {
  return *this = *this + other;
}

bool QXValue::operator<(const QXValue& other) const {
  return getDoubleValue() < other.getDoubleValue();
}

bool QXValue::operator==(const QXValue& other) const {
  if (isNumber() && other.isNumber()) return getDoubleValue() == other.getDoubleValue();
  if (tag_ != other.tag_) return false;
  switch (tag_) {
    case TAG_NAME:
      return content_.name == other.content_.name;
    case TAG_STRING:
      return content_.body->text == other.content_.body->text;
    case TAG_DICTIONARY:
      return content_.body->items == other.content_.body->items;
    default:
      return true;  // null; numbers are done
  }
}

}  // namespace QXCommonNS
