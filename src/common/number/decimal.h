#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Decimal numbers in text. Nothing here looks at the locale of the process.
namespace QXCommonNS::number {

/// Whether "E" and an exponent belong to a number.
enum class Exponent { none, allowed };

/// What stands at the start of a text.
struct Decimal {
  std::size_t length = 0;  ///< characters of the number; 0 when there is none
  bool integral = true;    ///< sign and digits only
};

template <class Char>
[[nodiscard]] constexpr bool isDigit(Char c) {
  return c >= Char{'0'} && c <= Char{'9'};
}

template <class Char>
[[nodiscard]] constexpr bool isSign(Char c) {
  return c == Char{'+'} || c == Char{'-'};
}

/// Steps behind the digits at `position`. No digit is zero, so a zero-ended text needs no `size`.
template <class Char>
[[nodiscard]] constexpr std::size_t skipDigits(const Char* text, std::size_t position,
                                               std::size_t size) {
  while (position < size && isDigit(text[position])) ++position;
  return position;
}

/// The length of "E", a sign and digits at `position`; 0 when they do not stand there.
template <class Char>
[[nodiscard]] constexpr std::size_t exponentLength(const Char* text, std::size_t position,
                                                   std::size_t size) {
  if (position >= size || (text[position] != Char{'E'} && text[position] != Char{'e'})) return 0;
  std::size_t digits = position + 1;
  if (digits < size && isSign(text[digits])) ++digits;
  const std::size_t end = skipDigits(text, digits, size);
  return end == digits ? 0 : end - position;
}

/// Finds the number at the start of a text: a sign, digits with at most one point among them or
/// at either end, and an exponent if allowed.
/// @param size the length of the text; `SIZE_MAX` for a zero-ended one.
template <class Char>
[[nodiscard]] constexpr Decimal scanDecimal(const Char* text, std::size_t size, Exponent exponent) {
  const std::size_t start = size > 0 && isSign(text[0]) ? 1 : 0;
  std::size_t end = skipDigits(text, start, size);
  std::size_t digits = end - start;
  Decimal found;
  if (end < size && text[end] == Char{'.'}) {
    found.integral = false;
    const std::size_t fraction = end + 1;
    end = skipDigits(text, fraction, size);
    digits += end - fraction;
  }
  if (digits == 0) return {};
  if (exponent == Exponent::allowed) {
    const std::size_t power = exponentLength(text, end, size);
    if (power > 0) found.integral = false;
    end += power;
  }
  found.length = end;
  return found;
}

/// The amount of a number that `scanDecimal` found. Amounts beyond a double are clamped.
[[nodiscard]] double decimalValue(std::string_view number);

template <class Char>
[[nodiscard]] double decimalValue(const Char* number, std::size_t length) {
  std::string narrow(length, '\0');
  for (std::size_t i = 0; i < length; ++i) narrow[i] = static_cast<char>(number[i]);
  return decimalValue(narrow);
}

/// What C's `atof` gives in the "C" locale: white space, a sign, digits, a point, an exponent; 0
/// without a number. Clamped, and neither "inf" nor hexadecimal digits are taken.
[[nodiscard]] double toDouble(std::string_view text);

/// What C's `atoi` gives: white space, a sign, digits; 0 without a number. Clamped to 32 bits.
[[nodiscard]] int toInt(std::string_view text);

}  // namespace QXCommonNS::number
