#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"
#include "embed/glyph_reader.h"

namespace QXFontService_NS::embed::conforming {

/// A `gvar` with the variations of `kept` (by rising id) alone: those of an outline that is gone
/// move points that it does not have. Offset format and glyph ids stay (OpenType `gvar`).
/// @return the table as it is where it is not sound.
[[nodiscard]] std::vector<std::byte> hollowGvar(QXCommonNS::bytes::ByteView gvar,
                                                const std::vector<KeptGlyph>& kept);

}  // namespace QXFontService_NS::embed::conforming
