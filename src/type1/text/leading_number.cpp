#include "type1/text/leading_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "common/number/decimal.h"

namespace QXFontService_NS::type1 {
namespace {

using Limits = std::numeric_limits<int>;

constexpr std::string_view kBlanks = " \t\n\v\f\r";

std::string_view withoutBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

int digitOf(char c, int base) {
  int digit = base;
  if (c >= '0' && c <= '9') digit = c - '0';
  if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
  if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
  return digit < base ? digit : -1;
}

/// Steps over "0x" where a digit follows it.
std::size_t prefixLength(std::string_view text, int base) {
  const bool prefixed = base == 16 && text.size() > 2 && text[0] == '0' &&
                        (text[1] == 'x' || text[1] == 'X') && digitOf(text[2], base) >= 0;
  return prefixed ? 2 : 0;
}

}  // namespace

float leadingReal(std::string_view text) {
  namespace number = QXCommonNS::number;
  const std::string_view start = withoutBlanks(text);
  const number::Decimal found =
      number::scanDecimal(start.data(), start.size(), number::Exponent::allowed);
  if (found.length == 0) return 0;
  constexpr double kLargest = std::numeric_limits<float>::max();
  const double value = number::decimalValue(start.substr(0, found.length));
  return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

int leadingInteger(std::string_view text, int base, std::string_view& rest) {
  rest = text;
  std::string_view digits = withoutBlanks(text);
  const bool negative = digits.substr(0, 1) == "-";
  if (negative || digits.substr(0, 1) == "+") digits.remove_prefix(1);
  digits.remove_prefix(prefixLength(digits, base));
  std::int64_t value = 0;
  std::size_t length = 0;
  for (; length < digits.size() && digitOf(digits[length], base) >= 0; ++length)
    value = std::min<std::int64_t>(value * base + digitOf(digits[length], base),
                                   std::int64_t{Limits::max()} + 1);
  if (length == 0) return 0;
  rest = digits.substr(length);
  return static_cast<int>(
      std::clamp<std::int64_t>(negative ? -value : value, Limits::min(), Limits::max()));
}

int leadingInteger(std::string_view text) {
  std::string_view rest;
  return leadingInteger(text, 10, rest);
}

}  // namespace QXFontService_NS::type1
