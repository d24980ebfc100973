#pragma once

#include "qxcommon/export.h"
#include "qxfontservice/glyph_class_def.h"

namespace QXFontService_NS {

/// A glyph id with the glyph's class, 32 bits in all, copied as a whole.
///
/// A plain value: no failure, no ownership; distinct objects may be used on distinct threads.
class QX_EXPORT GlyphIDClassPair {
 public:
  unsigned short glyphID;    ///< glyph index; 0xFFFF is no glyph
  GlyphClassDef glyphClass;  ///< OpenType `GDEF` class, or a negative value for none

  /// No glyph (0xFFFF) of no class (-1).
  GlyphIDClassPair() : glyphID(0xFFFF), glyphClass(GCD_NONE) {}
  /// That glyph, with a class that nobody compares with the font's.
  GlyphIDClassPair(unsigned short glyph, GlyphClassDef cls) : glyphID(glyph), glyphClass(cls) {}
  GlyphIDClassPair(const GlyphIDClassPair&) = default;
  GlyphIDClassPair& operator=(const GlyphIDClassPair&) = default;
  GlyphIDClassPair& operator=(GlyphIDClassPair&&) = default;

  /// Makes this no glyph of no class: (0xFFFF, -1).
  void clear() { *this = GlyphIDClassPair(); }
  /// Sets the place aside: (0xFFFF, -2).
  void ignore() { *this = GlyphIDClassPair(0xFFFF, GCD_IGNORED); }
  /// Whether there is a glyph, that is, an id other than 0xFFFF.
  bool hasGlyph() const { return glyphID != 0xFFFF; }
};

}  // namespace QXFontService_NS
