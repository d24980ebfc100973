#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "embed/cff/cff_subset_source.h"

namespace QXFontService_NS::embed::conforming {

/// Writes a CFF table that strict readers take, with the glyph ids of its source: as many
/// charstrings as the font has glyphs, the parts of accented composites among them, empty glyphs
/// for those not asked for, and every offset made anew.
///
/// @param glyphCount `numGlyphs` of `maxp`; 0 where it is not known.
/// @return false, with `out` unspecified, for a font with fewer charstrings than `maxp` says, an id
///   past the last glyph, and for what cannot be read.
[[nodiscard]] bool makeConformingCff(const CffSubsetSource& source,
                                     const std::vector<std::uint16_t>& gids, unsigned glyphCount,
                                     std::vector<std::byte>& out);

}  // namespace QXFontService_NS::embed::conforming
