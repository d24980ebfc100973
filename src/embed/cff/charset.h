#pragma once

#include <cstdint>
#include <istream>
#include <vector>

#include "embed/cff/ranges.h"

namespace QXFontService_NS::cff {

/// The maps between glyph ids and SIDs (CIDs in a CID-keyed font) that a charset gives.
struct Charset {
  std::vector<unsigned short> sids;    ///< format 0: entry n is that of glyph n + 1
  std::vector<FS_CFFRange> sidRanges;  ///< formats 1 and 2, keyed by SID, sorted
  std::vector<FS_CFFRange> gidRanges;  ///< formats 1 and 2, keyed by glyph id, sorted
};

/// Reads the charset of format 0, 1 or 2 at a stream position until `glyphCount` glyphs, glyph 0
/// among them, are covered. False for any other format and for a short read.
[[nodiscard]] bool readCharset(std::istream& stream, std::int64_t position, unsigned glyphCount,
                               Charset& out);

}  // namespace QXFontService_NS::cff
