#pragma once

#include <cstdint>
#include <map>

#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

/// A directory record of a font that is being written; it begins as that of the source.
struct SubsetTable {
  std::uint32_t checkSum = 0;
  std::uint32_t offset = 0;  ///< in the source
  std::uint32_t length = 0;
};

/// The tables of a font that is being written, by their tags, in the order of the file.
using SubsetTables = std::map<std::uint32_t, SubsetTable>;

/// Chooses the tables of the font to write, and sets `numTables` and the search fields of the
/// offset table for them. `loca` is read into the image at the first call for a font.
///
/// @param tags a list that ends with a zero; null means all tables. Tags that the font lacks are
///   passed over, and the outlines (`glyf`, `loca`, `CFF `) come along whether listed or not.
/// @return false, with nothing changed, for a font without outlines.
[[nodiscard]] bool selectTables(const SubsetSource& source, const std::uint32_t* tags,
                                SubsetTables& tables);

/// Whether the font has outlines in `glyf`, with the `loca` they need.
[[nodiscard]] bool hasGlyphOutlines(const SubsetSource& source);
/// Whether the font has a `CFF ` table.
[[nodiscard]] bool hasCffOutlines(const SubsetSource& source);

/// Sets `numTables` alone; the search fields stay as `selectTables` left them.
void setTableCount(FS_TableDirectoryImage& image, std::size_t count);

}  // namespace QXFontService_NS::embed
