#pragma once

#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

namespace qxfont {

/// A CIDFontType 0 resource with the glyphs of a font whose outlines are in `CFF `.
struct CidPostScript {
  std::string text;
  std::string name;                    ///< of the CIDFont
  std::vector<unsigned short> glyphs;  ///< the glyph of CID 1, 2, 3 ...
  std::vector<unsigned short> blank;   ///< glyphs left out, since they show nothing
};

/// Writes the glyphs `gids`. Blank ones are left out: many fonts have them in a form that does not
/// convert, and all that they do is move on.
/// @throws ToolError `badFont`, with the glyphs that do not convert.
CidPostScript cidPostScript(const QXFontService_NS::FS_FontInfo& font,
                            const std::vector<unsigned short>& gids);

}  // namespace qxfont
