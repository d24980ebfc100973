#pragma once

namespace QXFontService_NS {

/// The class of a glyph: the values of OpenType `GDEF`'s GlyphClassDef table, and three that stand
/// for the lack of one. Kept in 16 bits wherever it is stored.
enum GlyphClassDef : short {
  GCD_BASE = 1,
  GCD_LIGATURE = 2,
  GCD_MARK = 3,
  GCD_COMPONENT = 4,
  GCD_NONE = -1,     ///< no glyph, or one that the table does not list
  GCD_IGNORED = -2,  ///< the host set the record aside
  GCD_NO_TABLE = -3  ///< the font has no glyph class table
};

}  // namespace QXFontService_NS
