#include "common/number/decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace QXCommonNS::number {
namespace {

using DoubleLimits = std::numeric_limits<double>;

std::string_view withoutPlus(std::string_view number) {
  if (number.starts_with('+')) number.remove_prefix(1);
  return number;
}

/// The exponent behind "E", clamped; 0 without one.
long long exponentOf(std::string_view power) {
  if (power.empty()) return 0;
  power = withoutPlus(power.substr(1));
  long long value = 0;
  const auto result = std::from_chars(power.data(), power.data() + power.size(), value);
  constexpr long long kHuge = std::numeric_limits<int>::max();
  if (result.ec == std::errc::result_out_of_range) return power.starts_with('-') ? -kHuge : kHuge;
  return std::clamp(value, -kHuge, kHuge);
}

/// Whether a number that a double cannot hold is too large, not too small: whether its first
/// digit stands before the point once the exponent has moved it.
bool isLarge(std::string_view number) {
  const std::size_t power = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, power);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  const auto place = static_cast<long long>(point) - static_cast<long long>(first);
  return place + exponentOf(number.substr(power)) > 0;
}

double clampedValue(std::string_view number) {
  if (!isLarge(number)) return 0;
  return number.starts_with('-') ? DoubleLimits::lowest() : DoubleLimits::max();
}

std::string_view withoutBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

}  // namespace

double decimalValue(std::string_view number) {
  number = withoutPlus(number);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  return result.ec == std::errc::result_out_of_range ? clampedValue(number) : value;
}

double toDouble(std::string_view text) {
  text = withoutBlanks(text);
  return decimalValue(
      text.substr(0, scanDecimal(text.data(), text.size(), Exponent::allowed).length));
}

int toInt(std::string_view text) {
  text = withoutBlanks(text);
  if (text.size() > 1 && isDigit(text[1])) text = withoutPlus(text);  // "+-5" is no number
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

}  // namespace QXCommonNS::number
