#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <vector>

namespace qxbench {

/// A glyph's outline as FreeType decomposes it: kinds of segments (0 line, 1 quadratic, 2 cubic),
/// and x and y of all points in font units. Its room is used again for the next glyph.
struct DecomposedOutline {
  float scale = 1;
  std::vector<unsigned> kinds;
  std::vector<float> points;
};

/// Sets the size at which outlines are taken, once for a face.
/// @return units of 26.6 pixels a font unit.
int setOutlineSize(FT_Face face);

/// Loads a glyph, hinted, and decomposes it: the bare calls that an outline takes. False where the
/// glyph does not load.
bool decompose(FT_Face face, unsigned glyph, DecomposedOutline& out);

}  // namespace qxbench
