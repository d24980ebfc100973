#pragma once

#include "qxfontservice/glyph_id_class_pair.h"

#include "layout/table/layout_tables.h"

namespace QXFontService_NS::layout {

/// Bits of a lookup's flag (OpenType LookupFlag). UseMarkFilteringSet, 0x0010, has no effect.
inline constexpr unsigned kRightToLeft = 0x0001;
inline constexpr unsigned kIgnoreBaseGlyphs = 0x0002;
inline constexpr unsigned kIgnoreLigatures = 0x0004;
inline constexpr unsigned kIgnoreMarks = 0x0008;
inline constexpr unsigned kMarkAttachmentType = 0xFF00;

/// Whether a lookup of this flag passes over a glyph. The class is the one in the pair, as the
/// host or the last substitution set it; only the mark attachment class is looked up by glyph.
///
/// Matchers do not ask for the first glyph of a match, only for those around it.
inline bool isSkipped(const FS_LayoutTables& font, unsigned flag, const GlyphIDClassPair& pair) {
  if (flag == 0) return false;
  if ((flag & kIgnoreBaseGlyphs) != 0 && pair.glyphClass == GCD_BASE) return true;
  if ((flag & kIgnoreLigatures) != 0 && pair.glyphClass == GCD_LIGATURE) return true;
  if ((flag & kIgnoreMarks) != 0 && pair.glyphClass == GCD_MARK) return true;
  if ((flag & kMarkAttachmentType) == 0) return false;
  const int attachClass = font.markAttachClass(pair.glyphID);
  if (attachClass == GCD_NONE) return pair.glyphClass == GCD_MARK;
  // Kept: a base glyph that has a mark attachment class is tested like a mark, and a font without
  // the table (-3) skips every glyph.
  return attachClass != static_cast<int>(flag >> 8 & 0xFF);
}

}  // namespace QXFontService_NS::layout
