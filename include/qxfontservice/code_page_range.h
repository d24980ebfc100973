#pragma once

namespace QXFontService_NS {

/// Code pages that a font says it supports: OpenType `OS/2`, ulCodePageRange1 and 2.
struct FS_CodePageRange {
  unsigned int bits0 = 0;  ///< bits 0 to 31, the lowest first
  unsigned int bits1 = 0;  ///< bits 32 to 63
};

}  // namespace QXFontService_NS
