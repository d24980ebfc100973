#pragma once

#include <array>
#include <cstdint>

namespace QXFontService_NS::embed {

// Which tables the embedding forms take from the source, beside the outlines, which no list can
// leave out. Each list ends with a zero.

/// The tables that a document reader needs to draw glyphs by their ids.
extern const std::array<std::uint32_t, 10> kEmbedTables;
/// The same and `cmap`, for readers that start from characters.
extern const std::array<std::uint32_t, 11> kEmbedTablesWithCmap;
/// The tables of a Type 42 font, whose metrics and names stand in its PostScript part.
extern const std::array<std::uint32_t, 8> kPostScriptTables;

}  // namespace QXFontService_NS::embed
