#pragma once

#include <cstdint>

#include "layout/table/sub_table.h"

namespace QXFontService_NS::layout {

class GraphReader;

/// Reads the subtable at a place of the table; null where its format is not supported.
using SubTableReader = SubTablePtr (*)(GraphReader& reader, std::uint64_t at);

/// The readers of each table's lookup types, or null for a type without one. An extension has
/// none: it is resolved before.
SubTableReader gsubSubTableReader(unsigned type);
SubTableReader gposSubTableReader(unsigned type);

}  // namespace QXFontService_NS::layout
