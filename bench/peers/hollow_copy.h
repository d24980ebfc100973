#pragma once

#include <string>
#include <vector>

namespace qxbench {

/// The least that a subset with ids kept takes: the glyphs with their components in a bit set,
/// their outlines appended, a new `loca`, the sums of both, the other tables copied. It checks
/// nothing of the font and is no font that opens; it is there to be timed.
void hollowCopy(const std::string& font, const std::vector<unsigned short>& glyphs,
                std::string& out);

/// Reads from a file what `hollowCopy` needs of it: directory, tables, and the kept outlines.
void readKept(const std::string& path, const std::string& font,
              const std::vector<unsigned short>& glyphs);

}  // namespace qxbench
