#pragma once

#include <string>
#include <vector>

#include "qxfont/typeset/page.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// Where a line's box begins above its baseline, in em: every font of the document is given this
/// ascent, so that lines stand alike whatever fonts are on them.
constexpr double kHtmlAscent = 0.8;

/// What a page shows: each line an element at its place, its text in the order in which it is read.
/// Font i is the class fi, and i counts in `fonts`. A character that no font has is text too, which
/// is not seen, in a box as wide as the `.notdef` in its place.
std::string htmlPage(const Page& page, const PageSize& sheet, const std::vector<UsedGlyphs>& fonts);

}  // namespace qxfont
