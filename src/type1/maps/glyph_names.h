#pragma once

#include <string>
#include <string_view>

namespace QXFontService_NS::type1 {

// The tables of glyph names. They are made at the first need and stay until the process ends; any
// thread.

/// The glyph name of a character; empty when it has none.
std::string_view glyphNameOf(int unicode);

/// The character of a glyph name; 0 when it has none.
int unicodeOf(std::string_view glyphName);

/// The character under which the glyph of a character is named: U+0020 for U+00A0; itself for most.
int unicodeAlternative(int unicode);

/// The name of a code in Adobe's standard encoding; ".notdef" where the code is free.
std::string_view standardEncodingName(unsigned char code);

/// The code of a glyph name in Adobe's standard encoding; 0 when it has none.
int standardEncodingCode(std::string_view glyphName);

}  // namespace QXFontService_NS::type1
