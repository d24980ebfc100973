#pragma once

#include <string>
#include <vector>

#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// The part of a face that pages use as a web font. Beside the glyphs that are set it holds those
/// of the characters alone, for readers that set the text with fewer features than was done here.
/// @throws ToolError `wrongCall` for a font without an sfnt around it, `badFont` for one that
/// cannot
///   be read whole.
std::string webFontOf(const FontSet& fonts, const UsedGlyphs& used, const std::vector<Page>& pages);

}  // namespace qxfont
