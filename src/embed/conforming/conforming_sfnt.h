#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "qxcommon/mem_stream.h"

namespace QXFontService_NS::embed::conforming {

/// The bodies of an sfnt's tables by their tags.
using TableBodies = std::map<std::uint32_t, std::vector<std::byte>>;

/// Writes an sfnt as OpenType asks for it: sorted directory with its search fields, every table
/// padded, all checksums and `checkSumAdjustment` made anew.
///
/// `out` must be empty. @return false, with nothing written, without a whole `head`, with more
/// tables than a directory counts, and beyond 4 GiB.
[[nodiscard]] bool writeConformingSfnt(std::uint32_t version, TableBodies tables,
                                       QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::embed::conforming
