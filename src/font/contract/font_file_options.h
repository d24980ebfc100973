#pragma once

#include <memory>

#include "qxcommon/unicode_range.h"
#include "qxcommon/uri.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// What the configuration says of one font file.
struct FS_FontFileOptions {
  QXUri glyphList;                    ///< Glyph list of a Type 1 font; empty for none.
  bool skipGlyphnameMapping = false;  ///< Take the glyph list alone, without the built-in names.
  bool exclude = false;               ///< The file is not loaded.
  bool useZeroGlyphId = false;        ///< Glyph 0 of the character map is a glyph.
  float fontSizeAdjust = 1.0F;
  float baselineAdjust = 0.0F;
  std::unique_ptr<QXUnicodeRange> range;  ///< Characters to take from the font; null for all.
};

}  // namespace QXFontService_NS
