#pragma once

#include <vector>

#include "qxfontservice/glyph_id_position.h"

#include "layout/table/gsub_gpos_info.h"

namespace QXFontService_NS::layout {

/// Runs the `GPOS` lookups of a feature at one position. The host owns the loop over positions.
///
/// @param info the script and language; null answers false
/// @param tag the feature. Of the features of this tag, in the language system's order, the first
///   in which a lookup applies is the last to be tried. For the script 'arab' a feature's lookups
///   run from last to first and for 'hebr' from first to last, up to one that applies; for all
///   others they all run.
/// @param glyphs changed in place, in font units
/// @param position the index to work at; outside nothing happens. A pair may move it on for the
///   lookups that follow in this call.
/// @param rightToLeft the direction of the text
/// @return whether any lookup applied
///
/// Writes `glyphs` only, so any number of threads may call it for one font. Source: OpenType
/// `GPOS`.
bool processGPOS(const FS_GSUBGPOSInfo* info, unsigned int tag,
                 std::vector<GlyphIDPosition>& glyphs, int position, bool rightToLeft);

/// Runs one `GPOS` lookup over all glyphs. The host owns the loop over lookups.
///
/// @param info the script and language; null answers -1
/// @param index of the language system's lookups in order; `getGPOSFeatureTag` tells its feature
/// @param glyphs changed in place, in font units
/// @param rightToLeft the direction of the text; a lookup whose flag says so runs from right to
///   left in any case
/// @return the place at which the lookup applied first, as a pair moved it; -1 if it applied
///   nowhere
///
/// Threads and source as `processGPOS`.
int processGPOS3(const FS_GSUBGPOSInfo* info, int index, std::vector<GlyphIDPosition>& glyphs,
                 bool rightToLeft);

}  // namespace QXFontService_NS::layout
