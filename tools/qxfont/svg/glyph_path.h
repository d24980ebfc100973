#pragma once

#include <string>

#include "qxfontservice/glyph_draw_info.h"

#include "qxfont/cli/output.h"

namespace qxfont {

/// The path of a glyph as SVG 2 writes it, in font units, y upward; empty for a blank glyph.
std::string svgPath(const QXFontService_NS::FS_GlyphDrawInfo& glyph);

/// The fill rule of the glyph's path as SVG names it.
const char* svgFillRule(const QXFontService_NS::FS_GlyphDrawInfo& glyph);

/// A glyph as a document of its own: one font unit is one unit of the document.
std::string svgGlyph(const QXFontService_NS::FS_GlyphDrawInfo& glyph);

/// The contours: of each the pieces ["M", x, y], then ["L", x, y], ["Q", x1, y1, x, y] or
/// ["C", x1, y1, x2, y2, x, y].
Json contoursJson(const QXFontService_NS::FS_GlyphDrawInfo& glyph);

}  // namespace qxfont
