#pragma once

#include <string>

namespace qxtest {

/// A `GSUB` table with lookups of all types, direct and by extension, each alone in a feature
/// 'test' of script 'test', over glyphs 1 to 3 with marks 50 and 51; all pass over marks.
std::string sampleSubstitutions();

/// The same of `GPOS`; ligature 70. Cursive lookups run from right to left too, marks on marks pass
/// over nothing.
std::string samplePositions();

}  // namespace qxtest
