#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

namespace qxfont {

/// UTF-8, as the outside world has it, from the service's text.
std::string utf8(const icu::UnicodeString& text);

/// The service's text from UTF-8; what is no UTF-8 becomes U+FFFD.
icu::UnicodeString unicode(std::string_view text);

/// The first line of a message that may have several, and the lines behind it joined by ": ".
std::string oneLine(const icu::UnicodeString& message);

/// "U+0041", with as many digits as the code point needs, four at least.
std::string codePointName(int codePoint);

}  // namespace qxfont
