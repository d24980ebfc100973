#pragma once

#include "qxfontservice/font_info.h"

#include "qxfont/pdf/pdf_document.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// Gives the glyphs that pages use the codes that the embedded font has for them.
/// @throws ToolError `badFont` when it does not tell them apart.
void numberForPdf(const QXFontService_NS::FS_FontInfo& font, UsedGlyphs& used);

/// Makes the part of a font that pages use ready for a PDF document.
/// @param used with its codes.
/// @throws ToolError `badFont` when the font does not give its subset.
PdfFont embeddedFont(const QXFontService_NS::FS_FontInfo& font, const UsedGlyphs& used);

/// A PostScript name as PDF takes it: printable ASCII without blanks and delimiters.
std::string pdfName(const std::string& name);

}  // namespace qxfont
