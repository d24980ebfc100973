#pragma once

#include <unicode/unistr.h>

#include <map>
#include <string>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// Codes, page << 8 | code, with the characters that each stands for.
using CodeTexts = std::map<unsigned short, icu::UnicodeString>;

/// The glyph names that the encoding of an embedded page of codes needs, by code; `.notdef` and
/// codes that the font program tells nothing of are left out.
/// @throws ToolError `badFont` for a name that no document can write.
std::map<unsigned char, std::string> namesOnCodePage(const QXFontService_NS::FS_FontInfo& font,
                                                     const CodeTexts& texts);

}  // namespace qxfont
