#pragma once

namespace QXFontService_NS {

/// The kind of a font file, and hints for the rule that finds it out.
enum FS_FontFileType : int {
  FS_FILETYPE_UNKNOWN = 0,
  FS_FILETYPE_TYPE1_PFA = 1,     ///< Type 1 font program, ASCII.
  FS_FILETYPE_TYPE1_PFB = 2,     ///< Type 1 font program, binary segments.
  FS_FILETYPE_TYPE1_AFM = 3,     ///< Adobe font metrics with a Type 1 font program.
  FS_FILETYPE_TYPE1_PFM = 4,     ///< Printer font metrics with a Type 1 font program.
  FS_FILETYPE_TRUETYPE = 5,      ///< sfnt with `glyf` outlines.
  FS_FILETYPE_TTC = 6,           ///< Collection of sfnt fonts.
  FS_FILETYPE_OPENTYPE = 7,      ///< sfnt with `CFF ` outlines, not CID-keyed or not yet loaded.
  FS_FILETYPE_OPENTYPE_CID = 8,  ///< sfnt with CID-keyed `CFF ` outlines.
  FS_FILETYPE_DFONT = 9,         ///< Macintosh resource fork with sfnt fonts.
  FS_FILETYPE_WOFF = 10,         ///< Web Open Font Format 1.0.

  FS_FILETYPE_HINT_BYTES = 12,    ///< Hint: the first four bytes decide, not the extension.
  FS_FILETYPE_HINT_BYTES2 = 13,   ///< Hint: as FS_FILETYPE_HINT_BYTES.
  FS_FILETYPE_HINT_PFM = 14,      ///< Hint: an unknown extension means PFM.
  FS_FILETYPE_HINT_TRUETYPE = 15  ///< Hint: an unknown extension means TrueType.
};

}  // namespace QXFontService_NS
