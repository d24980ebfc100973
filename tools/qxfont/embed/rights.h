#pragma once

#include <string>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// Holds what is to be embedded against the licence bits of the font (OpenType `OS/2`, fsType).
/// @param part whether only some of its glyphs are embedded.
/// @throws ToolError `notAllowed`.
void requireRights(const QXFontService_NS::FS_FontInfo& font, bool part);

}  // namespace qxfont
