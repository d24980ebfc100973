#pragma once

#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

#include "qxfont/typeset/page.h"
#include "qxfont/typeset/page_size.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {

/// The outlines of a face that a document uses, each defined once.
struct SvgFont {
  std::string definitions;
  double unitsPerEm = 1;
  std::vector<unsigned short> drawn;  ///< rising; the others are blank
};

/// A document, ready to be written.
struct SvgDocument {
  std::string title;  ///< UTF-8, as it is read
  PageSize page;
  std::vector<SvgFont> fonts;
  std::vector<std::string> pages;  ///< of `svgPage`
};

/// Takes the outlines of face `index` of a document.
/// @throws ToolError `badFont` for a font or a glyph that cannot be drawn.
SvgFont svgFont(const QXFontService_NS::FS_FontInfo& font, const UsedGlyphs& used,
                std::size_t index);

/// What a page shows: each glyph a `use` of its outline. `fonts` is in step with `used`.
std::string svgPage(const Page& page, const PageSize& sheet, const std::vector<UsedGlyphs>& used,
                    const std::vector<SvgFont>& fonts);

/// The document (SVG 2): the pages one below the other, which any viewer shows, since the format
/// has no pages of its own. It needs no font of the reader's. The same document gives the same
/// bytes.
std::string svgBytes(const SvgDocument& document);

}  // namespace qxfont
