#pragma once

#include "qxfontservice/font_info.h"

namespace QXFontService_NS {

/// The library's own way into a handle.
struct FontInfoAccess {
  static void set(FS_FontInfo& info, FS_BaseFont* font, int entry) {
    info.font_ = font;
    info.entry_ = entry;
  }
  static QXError& error(FS_FontInfo& info) { return info.error_; }
};

}  // namespace QXFontService_NS
