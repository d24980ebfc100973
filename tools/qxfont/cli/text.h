#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

namespace qxfont {

/// UTF-8, as the outside world has it, from the service's text.
std::string utf8(const icu::UnicodeString& text);

/// The service's text from UTF-8; what is no UTF-8 becomes U+FFFD.
icu::UnicodeString unicode(std::string_view text);

/// The same made fit for a terminal and a line of a table: what a font or file name holds of
/// control characters, line ends among them, becomes U+FFFD.
std::string shown(const icu::UnicodeString& text);
std::string shown(std::string_view text);

/// Whether the bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes);

/// The first line of a message that may have several, and the lines behind it joined by ": ".
std::string oneLine(const icu::UnicodeString& message);

/// "U+0041", with as many digits as the code point needs, four at least.
std::string codePointName(int codePoint);

}  // namespace qxfont
