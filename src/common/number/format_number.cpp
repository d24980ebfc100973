#include "common/number/format_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace QXCommonNS::number {
namespace {

UnicodeString fromAscii(const char* first, const char* last) {
  return UnicodeString(first, static_cast<std::int32_t>(last - first), US_INV);
}

}  // namespace

float toFloat(double value) {
  if (std::isnan(value)) return 0;
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

int toInteger(double value) {
  if (std::isnan(value)) return 0;
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kLargest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, kLowest, kLargest));
}

UnicodeString formatInteger(long long value) {
  std::array<char, 24> digits{};
  return fromAscii(digits.data(),
                   std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

UnicodeString formatReal(double value) {
  const float rounded = toFloat(value);
  if (rounded == 0) return u"0";  // not "-0"
  std::array<char, 64> digits{};  // 48 for the smallest float
  return fromAscii(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(),
                                                rounded, std::chars_format::fixed)
                                      .ptr);
}

}  // namespace QXCommonNS::number
