#pragma once

#include "qxfontservice/font_info.h"

#include "qxfont/pdf/pdf_document.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// Gives the glyphs that pages use the codes that the embedded font has for them.
/// @throws ToolError `badFont` when it does not tell them apart.
void numberForPdf(const QXFontService_NS::FS_FontInfo& font, UsedGlyphs& used);

/// Makes the part of a font that pages use ready for a PDF document.
/// @param used with its codes; of a Type 1 font one page of codes.
/// @throws ToolError `badFont` when the font does not give its subset.
PdfFont embeddedFont(const QXFontService_NS::FS_FontInfo& font, const UsedGlyphs& used);

}  // namespace qxfont
