#pragma once

#include <vector>

namespace qxbench {

/// `count` different glyph ids of a font, rising, without 0, drawn alike in every run; as many as
/// there are where the font has fewer.
std::vector<unsigned short> drawGlyphs(unsigned glyphs, std::size_t count);

}  // namespace qxbench
