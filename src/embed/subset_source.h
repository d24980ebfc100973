#pragma once

#include <istream>

#include "embed/table_directory_image.h"

namespace QXFontService_NS::embed {

/// What the writers need to know of an sfnt font. Plain values, so that no writer knows a font
/// class.
struct SubsetSource {
  std::istream* stream = nullptr;           ///< the font's file; borrowed, seekable
  FS_TableDirectoryImage* image = nullptr;  ///< borrowed; the writers change its offset table
  int indexToLocFormat = 0;                 ///< of `head`; 1 is long, anything else short
  unsigned glyphCount = 0;                  ///< of `maxp`; 0 where it is not known
};

}  // namespace QXFontService_NS::embed
