#pragma once

#include "qxfontservice/glyph_id_array.h"
#include "qxfontservice/glyph_id_array2.h"

#include "layout/table/gsub_gpos_info.h"

namespace QXFontService_NS::layout {

/// Tries the `GSUB` lookups of a feature at one position, up to the first hit. The host owns the
/// loop over positions.
///
/// @param info the script and language; null answers 0
/// @param tag the feature; all features of this tag are walked in the language system's order,
///   their lookups as they stand in them. A hit ends the call.
/// @param input never changed
/// @param position the index to work at; behind what was consumed after a hit. Outside `input`
///   nothing happens. Without a hit it stays, but a contextual rule without effect may leave it
///   further on.
/// @param output on a hit the glyphs that replace those of `input` from the old position to the
///   new one; for a contextual rule the rest of the sequence follows them
/// @param matched on a ligature or contextual hit the glyphs that a ligature passed over; left
///   alone otherwise
/// @param alternate which alternate a type 3 lookup takes, from 1; below it they miss
/// @return how many glyphs of `output` form the replacement; 0 if nothing applied
///
/// Writes its arguments only, so any number of threads may call it for one font. Source: OpenType
/// `GSUB`.
int processGSUB(const FS_GSUBGPOSInfo* info, unsigned int tag, const GlyphIDArray& input,
                int& position, GlyphIDArray& output, GlyphIDArray& matched, int alternate);

/// Runs one `GSUB` lookup over a whole array. The host owns the loop over lookups.
///
/// @param info the script and language; null answers false
/// @param index of the language system's lookups in order; `getGSUBFeatureTag` tells its feature
/// @param input never changed. A position whose correspondence word is not 0 is not worked on;
///   missing words count as 0.
/// @param output the resulting glyphs, each with a word: how many glyphs of `input` it stands for,
///   and, in the high half, its index when a ligature passed over it. Left alone where `index` is
///   invalid. It may be `input` itself.
/// @param alternate which alternate a type 3 lookup takes, from 1
/// @return whether any position changed
///
/// Threads and source as `processGSUB`.
bool processGSUB3(const FS_GSUBGPOSInfo* info, int index, const GlyphIDArray2& input,
                  GlyphIDArray2& output, int alternate);

}  // namespace QXFontService_NS::layout
