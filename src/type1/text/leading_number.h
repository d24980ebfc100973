#pragma once

#include <string_view>

namespace QXFontService_NS::type1 {

// Numbers at the start of a text, blanks ahead passed by; 0 where there is none. What does not fit
// is clamped. Nothing here looks at the locale of the process.

/// A decimal number with point and exponent.
float leadingReal(std::string_view text);

/// An integer of base 10 or 16, the latter with or without "0x". What stands behind it goes to
/// `rest`, which is all of the text where there is no number.
int leadingInteger(std::string_view text, int base, std::string_view& rest);
int leadingInteger(std::string_view text);

}  // namespace QXFontService_NS::type1
