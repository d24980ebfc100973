#pragma once

#include <unicode/unistr.h>

#include <map>
#include <string>

namespace qxfont {

/// The CMap that tells a reader of the document which characters a code stands for (ISO 32000-1,
/// 9.10.3), so that text can be copied and searched. Glyphs without characters are left out.
/// @param codeBytes what a code takes: 2, or 1 for fonts of at most 256 codes.
std::string toUnicodeMap(const std::map<unsigned short, icu::UnicodeString>& texts,
                         int codeBytes = 2);

/// UTF-16 as hexadecimal digits, high byte first; surrogates are two units.
std::string utf16Hex(const icu::UnicodeString& text);

}  // namespace qxfont
