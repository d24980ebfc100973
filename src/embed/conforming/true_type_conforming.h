#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/subset_source.h"

namespace QXFontService_NS::embed::conforming {

/// Writes a glyph subset that strict readers take: the glyphs and ids of `writeGlyphSubset` with
/// all tables, but with aligned glyphs, padded tables, and every checksum right. `DSIG`, which
/// signs the source, is left out.
///
/// `out` must be empty. @return false, with nothing written, for a font without `glyf` and `loca`,
/// for one that cannot be read whole, and for offsets that its `loca` format cannot hold.
[[nodiscard]] bool writeConformingTrueType(const SubsetSource& source,
                                           const std::vector<std::uint16_t>& gids,
                                           QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed::conforming
