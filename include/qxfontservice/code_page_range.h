#pragma once

namespace QXFontService_NS {

/// Code pages that a font says it supports: OpenType `OS/2`, ulCodePageRange1 and 2.
struct FS_CodePageRange {
  unsigned int bits0 = 0;
  unsigned int bits1 = 0;
};

}  // namespace QXFontService_NS
