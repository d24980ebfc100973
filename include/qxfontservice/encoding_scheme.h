#pragma once

namespace QXFontService_NS {

/// The encoding a font program with PostScript outlines has of its own.
enum FS_EncodingScheme : int {
  FS_ENCODING_NONE = 0,         ///< None is told; also the answer for `glyf` outlines and no font.
  FS_ENCODING_OTHER = 1,        ///< None of the others, such as Adobe's standard encoding.
  FS_ENCODING_WINANSI = 2,      ///< That of Windows for Latin text.
  FS_ENCODING_MACROMAN = 3,     ///< That of the Macintosh for Latin text.
  FS_ENCODING_MACEXPERT = 4,    ///< That of the Macintosh for expert sets.
  FS_ENCODING_FONTSPECIFIC = 5  ///< One of the font's own.
};

}  // namespace QXFontService_NS
