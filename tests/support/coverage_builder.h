#pragma once

#include <array>
#include <string>
#include <vector>

namespace qxtest {

/// An OpenType Coverage table of glyphs, written as they stand.
std::string coverage(const std::vector<unsigned>& glyphs);
/// One of ranges: first glyph, last glyph, coverage index of the first.
std::string coverageOfRanges(const std::vector<std::array<unsigned, 3>>& ranges);

}  // namespace qxtest
