#pragma once

#include "qxcommon/text.h"

namespace QXCommonNS::number {

/// The nearest float, clamped to the range of floats; 0 for a NaN.
[[nodiscard]] float toFloat(double value);

/// The integer part, clamped to 32 bits; 0 for a NaN.
[[nodiscard]] int toInteger(double value);

/// Decimal digits, with "-" before a negative number.
[[nodiscard]] UnicodeString formatInteger(long long value);

/// The shortest decimal form that reads back to the same float: no exponent, no needless zeros,
/// a "0" before the point. Numbers in embedded fonts are written so.
[[nodiscard]] UnicodeString formatReal(double value);

}  // namespace QXCommonNS::number
