#pragma once

#include <vector>

#include "qxfont/typeset/shaper.h"

namespace qxfont {

/// Sets a run in a Type 1 font: a glyph a character, with the kerning of the metric file. Each
/// glyph's id is the page and code that the font has given its character.
void shapeType1(const fs::FS_FontInfo& font, const icu::UnicodeString& text, const Run& run,
                bool wantsKerning, std::vector<Glyph>& glyphs);

}  // namespace qxfont
