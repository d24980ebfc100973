#pragma once

#include <cstdint>

#include "qxcommon/value.h"

#include "common/number/decimal.h"

namespace QXCommonNS::parse {

/// A token, and where the text goes on behind it.
struct Token {
  QXValue value;
  std::int32_t end = 0;  ///< UTF-16 index
};

/// White space: U+0009 to U+000D and U+0020.
[[nodiscard]] constexpr bool isBlank(char16_t c) {
  return c == u' ' || (c >= 0x09 && c <= 0x0D);
}

/// The amount of a hexadecimal digit of either case; -1 for any other character.
[[nodiscard]] int hexDigit(char16_t c);

/// Steps over the white space at `position`.
[[nodiscard]] std::int32_t skipBlanks(const UnicodeString& text, std::int32_t position);

/// Reads the token at `position`, where no blank stands; the null value at the end.
/// @param exponent whether "1E5" is a number.
[[nodiscard]] Token scanToken(const UnicodeString& text, std::int32_t position,
                              number::Exponent exponent);

}  // namespace QXCommonNS::parse
