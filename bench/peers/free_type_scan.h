#pragma once

#include <cstddef>

#include "harness/font_sets.h"

namespace qxbench {

/// What a lister built on FreeType does for each face: open it, take all names out of UTF-16, look
/// at the style. The number of faces.
std::size_t scanWithFreeType(const Paths& files);

}  // namespace qxbench
