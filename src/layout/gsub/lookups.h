#pragma once

#include <vector>

#include "qxfontservice/glyph_id_array.h"

#include "layout/records/glyph_sequence.h"
#include "layout/table/layout_tables.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS::layout {

// What a lookup answers at one glyph: the first answer of its subtables below 0xFFFF, with the
// `GDEF` class of the new glyph. No hit is a pair without a glyph, (0xFFFF, -1). A null subtable is
// passed by. Each subtable asked counts as a comparison: once they are spent, nothing is hit.

GlyphIDClassPair lookupSingle(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                              unsigned short glyph, WorkMeter& meter);
/// @param number which alternate, from 1; below it nothing is hit
GlyphIDClassPair lookupAlternate(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                                 unsigned short glyph, int number, WorkMeter& meter);
/// On a hit `position` comes to rest behind the last component, and `skipped` holds the places
/// passed over.
GlyphIDClassPair lookupLigature(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                                const GlyphSequence& glyphs, int& position,
                                std::vector<int>& skipped);
GlyphIDClassPair lookupReverse(const FS_LayoutTables& font, const TTI_Lookup& lookup,
                               const GlyphSequence& glyphs, int position);
/// Whether a subtable covers `glyph`; `output` then holds its sequence, which may be empty: callers
/// take that for no hit. The first subtable that covers it decides.
bool lookupMultiple(const FS_LayoutTables& font, const TTI_Lookup& lookup, unsigned short glyph,
                    GlyphIDArray& output, WorkMeter& meter);

}  // namespace QXFontService_NS::layout
