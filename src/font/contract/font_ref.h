#pragma once

namespace QXFontService_NS {

class FS_BaseFont;

/// A font object and the index of a face in it. It holds no reference.
struct FS_FontRef {
  FS_BaseFont* font = nullptr;
  short entry = 0;
};

}  // namespace QXFontService_NS
