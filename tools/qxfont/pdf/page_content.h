#pragma once

#include <string>
#include <vector>

#include "qxfont/typeset/page.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// The content stream of a page (ISO 32000-1, 9.4). `fonts[i]` is /Fi.
///
/// Where a glyph stands for other characters than its font's ToUnicode map says, since two
/// characters share it or no font has the character, the text goes along as ActualText.
std::string pageContent(const Page& page, const std::vector<UsedGlyphs>& fonts);

}  // namespace qxfont
