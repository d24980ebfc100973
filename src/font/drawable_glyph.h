#pragma once

#include "font/contract/base_font.h"

namespace QXFontService_NS {

/// Whether a glyph of a font may be handed to FreeType; see `outline::GlyphGuard`. Fonts that are
/// not sfnt fonts have no such glyphs to fear: FreeType bounds their programs itself.
///
/// @param face the face of that entry of the font; what is found out of its glyphs stays with it.
/// The caller holds `FS_OutlineLock`.
[[nodiscard]] bool isDrawableGlyph(FT_Face face, FS_BaseFont& font, int entry, unsigned short gid);

}  // namespace QXFontService_NS
