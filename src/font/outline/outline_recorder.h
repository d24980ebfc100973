#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include "qxfontservice/glyph_draw_info.h"

namespace QXFontService_NS::outline {

/// Replaces the record's contours by those of an outline, divided by `scale`, its bounds by those
/// of all points, and its fill rule. An outline without contours leaves the bounds as they were.
/// The caller holds `FS_OutlineLock`.
void recordOutline(FT_Outline& outline, int scale, FS_GlyphDrawInfo& info);

}  // namespace QXFontService_NS::outline
