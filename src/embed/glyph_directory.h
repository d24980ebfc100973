#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"
#include "qxfontservice/tt_glyph_map.h"

#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

/// Writes the glyph-directory form (Adobe TN 5012, Type 42 incremental fonts): an sfnt with the
/// tables of `kPostScriptTables` and an empty `gdir`, and each glyph of the subset into the stream
/// that `map` gives for it. What PostScript stands around the two is the host's.
///
/// Glyphs without bytes are not asked for; a glyph for which `map` gives null is passed over.
/// Kept, for documents already written: the search fields of the offset table are those of the
/// tables with `loca` and `glyf`, and so do not go with its table count.
///
/// `out` must be empty. @return false for a font without `glyf` and `loca`, and for one whose
/// glyphs or tables overlap beyond all reason.
[[nodiscard]] bool writeGlyphDirectoryFont(const SubsetSource& source,
                                           const std::vector<std::uint16_t>& gids,
                                           FS_TTGlyphMap& map, QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed
