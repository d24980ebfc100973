#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_subset_source.h"

namespace QXFontService_NS::embed {

/// Writes a CFF table that keeps the glyph ids of its source, to go back into an sfnt whose other
/// tables stay as they are. Glyphs that are not asked for become copies of the glyph of U+0020.
///
/// Kept, for documents already written: no glyph is written behind the highest one of `gids`,
/// whatever `maxp` says; composites get no parts; and the offsets of FDArray and Private are
/// patched as if the source had them as 5-byte operands, so that a source with shorter ones comes
/// out broken. `makeConformingSubsetFont` does it right.
///
/// `out` must be empty. False, with nothing written, for empty `gids`, no table, an id past the
/// last glyph and for whatever cannot be read; 0xFFFF is passed over.
[[nodiscard]] bool makeCFFSubsetFont(const CffSubsetSource& source,
                                     const std::vector<std::uint16_t>& gids,
                                     QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed
