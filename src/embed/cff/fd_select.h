#pragma once

#include <cstdint>
#include <vector>

#include "embed/cff/cff_table.h"
#include "embed/cff/ranges.h"

namespace QXFontService_NS::cff {

/// Reads the FDSelect structure of a CID-keyed font into ranges of glyphs.
///
/// Format 0 covers all glyphs but the last: required, and the reason why the writers refuse that
/// glyph. False for an offset of 0 or below, a format other than 0 and 3, no range at all in
/// format 3, and a short read. `charStrings` is the table offset of the CharStrings INDEX, whose
/// count format 0 needs.
[[nodiscard]] bool readFDSelect(const CffTable& table, std::int64_t fdSelect,
                                std::int64_t charStrings, std::vector<FS_FDRange>& out);

/// The Font DICT of a glyph, or `missing` where no range holds it.
[[nodiscard]] unsigned char getFDIndex(const std::vector<FS_FDRange>& ranges, unsigned short gid,
                                       unsigned char missing = 0xFF);

}  // namespace QXFontService_NS::cff
