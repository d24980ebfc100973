#pragma once

#include <unicode/unistr.h>

#include <set>
#include <vector>

#include "qxfont/typeset/bidi.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/shaper.h"

namespace qxfont {

/// Cuts a text into runs of one face, script and direction. The face is that of its style, or the
/// first lender that has a character; marks and joiners stay with what stands before them where its
/// face can set them. Characters of no script of their own take that of those before them, at the
/// beginning of those behind.
/// @param missing receives the characters that no face has; their runs are in the style's face.
std::vector<Run> itemize(const icu::UnicodeString& text, const Bidi& bidi, std::size_t style,
                         const FontSet& fonts, std::set<int>& missing);

}  // namespace qxfont
