#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

#include "qxfont/typeset/page.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// A font as it goes into a PostScript document.
struct PsFont {
  std::string name;      ///< of the CIDFont, or of the Type 1 font
  std::string resource;  ///< PostScript that defines it
  double scale = 1;      ///< what makes its em as large as a size says
  /// Of a Type 1 font the glyphs of one page of codes, by name; none: a CIDFont.
  std::optional<std::map<unsigned char, std::string>> encoding;
};

/// A document, ready to be written.
struct PsDocument {
  double width = 0;  ///< of the pages, in points
  double height = 0;
  std::vector<std::string> pages;  ///< font i is /Fi in them
  std::vector<PsFont> fonts;
  std::string creator;
};

/// Makes the part of a font that pages use ready for a document, and gives its glyphs the CIDs that
/// they have in it. Blank glyphs get none.
/// @param used of a Type 1 font one page of codes.
/// @throws ToolError `badFont` as `cidPostScript`, `wrongCall` for a font with TrueType outlines.
PsFont psFont(const QXFontService_NS::FS_FontInfo& font, UsedGlyphs& used);

/// What a page shows. Text is shown glyph by glyph where it is not set as wide as the font says.
std::string psPage(const Page& page, const std::vector<UsedGlyphs>& fonts);

/// The document (PostScript Language Reference, third edition; document structuring conventions
/// 3.0): the same document gives the same bytes.
std::string psBytes(const PsDocument& document);

}  // namespace qxfont
