#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// Which part of a font is asked for, as the command line says it.
struct GlyphRequest {
  std::vector<int> codePoints;       ///< in the order in which they were given
  std::vector<unsigned short> gids;  ///< asked for by number
};

/// The glyphs that a request comes to.
struct GlyphChoice {
  /// Glyph id, of a Type 1 font page and code: its first code point, -1 for none.
  std::map<unsigned short, int> glyphs;
  std::vector<int> missing;  ///< code points without a glyph, each once
};

/// Code points of a UTF-8 text; controls such as line ends ask for no glyph.
std::vector<int> parseText(std::string_view text);

/// "U+0041,U+4E00-4E0F": single code points and ranges, of either case.
/// @throws ToolError `wrongCall`, as the others do.
std::vector<int> parseUnicodes(const std::string& text);

/// "3,5-9": glyph ids and ranges of them.
std::vector<unsigned short> parseGids(const std::string& text);

/// The ids of all glyphs of a font.
std::vector<unsigned short> allGlyphs(const QXFontService_NS::FS_FontInfo& font);

/// Looks a request up in a font.
/// @throws ToolError for an id that the font does not have.
GlyphChoice chooseGlyphs(const QXFontService_NS::FS_FontInfo& font, const GlyphRequest& request);

}  // namespace qxfont
