#pragma once

#include <istream>
#include <map>
#include <string>

namespace QXFontService_NS::type1 {

/// Reads a glyph list: lines of a character in hexadecimal, ";" and a glyph name up to the next
/// ";". Lines that begin with "#" or white space, and others, are passed by. The first name of a
/// character stays.
/// @return false where the stream breaks off; what came before it is in the list.
bool readGlyphListFile(std::istream& stream, std::map<int, std::string>& list);

}  // namespace QXFontService_NS::type1
