#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The form in which font names are compared: without U+0020, U+002D and U+3000, in upper case.
UnicodeString normalizeFontName(const UnicodeString& name);

/// The weight that a style text such as "Semi Bold" names, 100 to 900; 400 for any other text.
int weightFromName(const UnicodeString& text);

}  // namespace QXFontService_NS
