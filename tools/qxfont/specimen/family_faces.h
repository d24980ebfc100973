#pragma once

#include <cstddef>
#include <vector>

#include "qxfont/cli/service.h"
#include "qxfont/typeset/font_set.h"

namespace qxfont {

/// The faces of the family of a face, by rising width, weight, upright before italic. A face that
/// the service does not list, such as one of a file that was named by its path, stands alone, and
/// so does one of a family whose other faces cannot be set.
std::vector<std::size_t> familyFaces(Service& service, FontSet& fonts, std::size_t face);

}  // namespace qxfont
