#pragma once

namespace QXFontService_NS {

/// The encoding a font program with PostScript outlines has of its own.
enum FS_EncodingScheme : int {
  FS_ENCODING_NONE = 0,
  FS_ENCODING_OTHER = 1,
  FS_ENCODING_WINANSI = 2,
  FS_ENCODING_MACROMAN = 3,
  FS_ENCODING_MACEXPERT = 4,
  FS_ENCODING_FONTSPECIFIC = 5
};

}  // namespace QXFontService_NS
