#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/cff/cff_subset_source.h"
#include "embed/cff_subset_charset.h"

namespace QXFontService_NS::embed {

/// Writes a bare CFF font with the glyphs of `gids` alone, renumbered in the order of their keys:
/// of a CID-keyed font the source's glyph ids, which become its CIDs; of a name-keyed one the SIDs.
///
/// Glyph 0 is always first, and 0 among `gids` writes it a second time; 0xFFFF is passed over.
/// Subroutines go out whole. `out` must be empty. False, with nothing written, for empty `gids`, no
/// table, an id past the last glyph, a Top DICT without `charset`, and for whatever cannot be read.
[[nodiscard]] bool makeCFFEmbedFont(const CffSubsetSource& source,
                                    const std::vector<std::uint16_t>& gids,
                                    QXCommonNS::QXMemStream& out);

/// The glyphs that `makeCFFEmbedFont` writes behind glyph 0, parts of composites among them, in the
/// order in which it numbers them from 1. Empty where it fails before it comes to them.
[[nodiscard]] KeyedGlyphs cffEmbedGlyphs(const CffSubsetSource& source,
                                         const std::vector<std::uint16_t>& gids);

}  // namespace QXFontService_NS::embed
