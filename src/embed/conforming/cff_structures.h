#pragma once

#include <cstdint>
#include <string>

#include "embed/cff/cff_table.h"

namespace QXFontService_NS::embed::conforming {

// Whole structures of a CFF table as the file has them, each of the length that its own fields
// tell. False for an unknown format and for a short read.

/// A charset of formats 0 to 2 for `glyphCount` glyphs, glyph 0 among them.
[[nodiscard]] bool readCharsetBytes(const cff::CffTable& table, std::int64_t offset,
                                    unsigned glyphCount, std::string& out);
/// An encoding of format 0 or 1, with its supplement.
[[nodiscard]] bool readEncodingBytes(const cff::CffTable& table, std::int64_t offset,
                                     std::string& out);
/// An FDSelect of format 0 or 3.
[[nodiscard]] bool readFDSelectBytes(const cff::CffTable& table, std::int64_t offset,
                                     unsigned glyphCount, std::string& out);

}  // namespace QXFontService_NS::embed::conforming
