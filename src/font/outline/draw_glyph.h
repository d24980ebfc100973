#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include "qxfontservice/glyph_draw_info.h"

namespace QXFontService_NS::outline {

/// Units of 26.6 pixels that one font unit takes when a glyph is loaded: near 4096 an em, even, and
/// at least 10, so that FreeType's rounding stays away from the design coordinates.
[[nodiscard]] int drawScale(int unitsPerEm);

/// Fills the record with a glyph of a face, in font units.
///
/// @param face the outline lock is held as long as it is used.
/// @param vertical take the glyph's vertical layout.
/// @return `info.valid`; on false the rest of the record is left as it was.
/// The outline is what FreeType gives with its hinting on: hosts rely on these very coordinates.
bool drawGlyph(FT_Face face, unsigned short gid, FS_GlyphDrawInfo& info, bool vertical);

}  // namespace QXFontService_NS::outline
