#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The host's side of the glyph-directory form: where the outlines of each glyph go.
class FS_TTGlyphMap {
 public:
  virtual ~FS_TTGlyphMap() = default;

  /// The stream that receives the `glyf` record of `gid`.
  ///
  /// Asked once for each glyph that has an outline, in ascending order, on the thread of the call
  /// that writes the font. The host owns it and keeps it alive through that call; null: left out.
  virtual QXMemStream* getGlyphStream(unsigned short gid) = 0;
};

}  // namespace QXFontService_NS
