#pragma once

#include "support/sfnt_builder.h"

namespace qxtest {

/// A small sound TrueType font of 1000 units, "QX Sample Regular": .notdef, space (U+0020), A
/// (U+0041, a square) and B (U+0042, a composite of A), with advances 500, 250, 600 and 600. Tests
/// change its tables one by one.
SfntBuilder sampleFont();

}  // namespace qxtest
