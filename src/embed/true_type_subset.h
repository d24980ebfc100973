#pragma once

#include <cstdint>
#include <vector>

#include "qxcommon/mem_stream.h"

#include "embed/font_stream.h"
#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

// The forms in which a font with an sfnt around it is embedded. The subset is a hollow copy of its
// source: glyph ids stay, every table but `glyf` and `loca` stays as it was, and a glyph that is
// not asked for is empty. `out` must be empty; what a failure has written there is of no use.

/// Writes `.notdef`, `gids` and their components with the tables of `tags`, a list that ends with
/// a zero; null means all tables. A font with `CFF ` alone goes out with its outlines whole.
/// @return false for a font without outlines; see also `writeSfnt`.
[[nodiscard]] bool writeGlyphSubset(const SubsetSource& source,
                                    const std::vector<std::uint16_t>& gids,
                                    const std::uint32_t* tags, QXCommonNS::QXMemStream& out);

/// The same with `kEmbedTablesWithCmap`, for fonts with `glyf` and `loca` only. `cmap` goes out
/// whole and may name glyphs that are empty now.
[[nodiscard]] bool writeGlyphSubsetWithCmap(const SubsetSource& source,
                                            const std::vector<std::uint16_t>& gids,
                                            QXCommonNS::QXMemStream& out);

/// Writes the tables of `tags` (null: all) with all glyphs.
[[nodiscard]] bool writeWholeTables(const SubsetSource& source, const std::uint32_t* tags,
                                    QXCommonNS::QXMemStream& out);

/// Writes what a host puts into SVG: all tables of a glyph subset, but a font with `CFF ` as the
/// stream has it, byte for byte.
[[nodiscard]] bool writeSvgFont(const SubsetSource& source, const std::vector<std::uint16_t>& gids,
                                QXCommonNS::QXMemStream& out);

/// Makes `out` read from the font's own stream, which it deletes later if it was opened for this.
/// @return whether the stream has any bytes.
[[nodiscard]] bool handOverStream(FontStream stream, QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed
