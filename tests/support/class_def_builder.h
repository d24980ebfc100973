#pragma once

#include <array>
#include <string>
#include <vector>

namespace qxtest {

/// An OpenType Class Definition table of consecutive glyphs from `start` on.
std::string classDef(unsigned start, const std::vector<unsigned>& classes);
/// One of ranges: first glyph, last glyph, class.
std::string classDefOfRanges(const std::vector<std::array<unsigned, 3>>& ranges);

/// An OpenType `GDEF` table with these class definitions; an empty one is left out.
std::string gdefTable(const std::string& glyphClasses, const std::string& markAttachClasses = {});

}  // namespace qxtest
