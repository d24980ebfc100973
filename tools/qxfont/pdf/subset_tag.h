#pragma once

#include <string>
#include <vector>

namespace qxfont {

/// The six letters that mark a font as a subset (ISO 32000-1, 9.6.4): the same for the same glyphs
/// of the same font, and most likely others for another subset.
std::string subsetTag(const std::string& name, const std::vector<unsigned short>& gids);

}  // namespace qxfont
