#pragma once

#include <array>
#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// A Type 1 font program as the service wrote it: the whole font, or the glyphs of one page of
/// codes.
struct Type1Page {
  unsigned char page = 0;
  std::string program;           ///< in segments
  std::array<int, 3> lengths{};  ///< of its clear text, private part and trailer
};

/// Writes the glyphs of codes, which are page << 8 | code, a font program for each page.
///
/// @return by rising page; code 0, which is `.notdef`, is in each of them anyway. Empty where no
///   code is asked for.
/// @throws ToolError `badFont` when the font does not give them.
std::vector<Type1Page> type1Pages(const QXFontService_NS::FS_FontInfo& font,
                                  const std::vector<unsigned short>& codes);

/// Writes the whole font program.
/// @throws ToolError as above.
Type1Page wholeType1(const QXFontService_NS::FS_FontInfo& font);

/// The program without the headers of its segments, as PDF has it.
std::string withoutSegments(const Type1Page& page);

/// The program as PostScript text, its private part in hexadecimal digits.
std::string asPostScript(const Type1Page& page);

/// The name under which a program defines its font; empty for none.
std::string definedName(const Type1Page& page);

}  // namespace qxfont
