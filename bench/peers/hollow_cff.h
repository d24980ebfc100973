#pragma once

#include <string>
#include <vector>

namespace qxbench {

/// The least that a subset of `CFF ` outlines with ids kept takes: up to the highest glyph asked
/// for a charstring each, that of one filler glyph for those that are dropped; offsets anew, the
/// sum of the table, everything else copied. It checks nothing of the font and is no font that
/// opens; it is there to be timed.
void hollowCffCopy(const std::string& font, const std::vector<unsigned short>& glyphs,
                   std::string& out);

/// Reads from a file what `hollowCffCopy` needs of it: directory, tables, and the kept
/// charstrings.
void readKeptCff(const std::string& path, const std::string& font,
                 const std::vector<unsigned short>& glyphs);

}  // namespace qxbench
