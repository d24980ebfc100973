#pragma once

#include <cstdint>
#include <istream>
#include <vector>

#include "font/directory/table_failure.h"

namespace QXFontService_NS {

/// Finds the fonts in a resource fork that is a plain file (Inside Macintosh: More Macintosh
/// Toolbox, Resource Manager; all numbers big-endian).
///
/// @param offsets receives where the data of each `sfnt` resource begin, behind their length,
///   which is not looked at; in the order of the map, counted from the start of the file.
/// @return a failure without a detail for a fork that is cut short, has no `sfnt` resources, or
///   has more than a face number can count.
[[nodiscard]] TableResult readFontResources(std::istream& stream,
                                            std::vector<std::int64_t>& offsets);

}  // namespace QXFontService_NS
