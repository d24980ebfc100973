#pragma once

#include <unicode/uchar.h>

#include "qxcommon/export.h"
#include "qxfontservice/glyph_id_class_pair.h"

namespace QXFontService_NS {

struct FS_LayoutTables;
struct GlyphRecordAccess;

/// A glyph of a run with its advance and its displacement, as a host hands it to the OpenType
/// `GPOS` operations and reads it back.
///
/// Lengths are font design units in 16 bits: every setter and adder cuts its argument to 16 bits
/// and wraps. `moveY` grows downward. A plain value: nothing fails, and distinct objects may be
/// used on distinct threads.
///
/// Bits of `flag` that layout reads, and of which it changes the first alone:
/// - 0x0002: the position came from outside `GPOS`; the first move restarts from an unmoved glyph.
/// - 0x1000: on a mark: mark-to-base looks at the class of zero-width glyphs too.
/// - 0x2000: on a mark: mark-to-base passes over glyphs whose `compInfo` is positive.
/// - 0x4000: on the glyph before a mark: mark-to-ligature finds its ligature by class alone and
///   takes the component from the mark's `skipInfo`.
/// - 0x8000: placed absolutely: a move sets instead of adds.
class QX_EXPORT GlyphIDPosition {
 public:
  /// All numbers 0, no glyph (0xFFFF, -1), `U_DT_ISOLATED`, joining group 0.
  GlyphIDPosition() = default;
  /// The same for `len` characters of the text and an advance of `width`, unmoved.
  GlyphIDPosition(int len, int width);
  GlyphIDPosition(const GlyphIDPosition&) = default;
  GlyphIDPosition& operator=(const GlyphIDPosition&) = default;
  ~GlyphIDPosition() = default;

  ///@{
  /// How many characters of the text the glyph stands for; layout never touches it.
  int getCorrespondLength() const { return correspondLength_; }
  void setCorrespondLength(int length) { correspondLength_ = cut(length); }
  void addCorrespondLength(int length) { correspondLength_ = cut(correspondLength_, length); }
  void incLength() { addCorrespondLength(1); }
  void clrLen() { correspondLength_ = 0; }
  ///@}

  ///@{
  /// The glyph's own advance. Setting it leaves `moveX2` alone.
  int getWidth() const { return width_; }
  void setWidth(int width) { width_ = cut(width); }
  void clrWidth() { width_ = 0; }
  ///@}

  ///@{
  /// Displacement of the glyph's origin in x. Adding to it does not compensate `moveX2`.
  int getMoveX1() const { return moveX1_; }
  void setMoveX1(int move) { moveX1_ = cut(move); }
  void addMoveX1(int move) { moveX1_ = cut(moveX1_, move); }
  ///@}
  ///@{
  /// The advance that remains after `moveX1`.
  int getMoveX2() const { return moveX2_; }
  void setMoveX2(int move) { moveX2_ = cut(move); }
  void addMoveX2(int move) { moveX2_ = cut(moveX2_, move); }
  ///@}
  /// How far the pen moves in all: `moveX1` + `moveX2`, not cut to 16 bits.
  int getMoveX() const { return moveX1_ + moveX2_; }
  ///@{
  /// Displacement in y, downward.
  int getMoveY() const { return moveY_; }
  void setMoveY(int move) { moveY_ = cut(move); }
  ///@}

  ///@{
  /// The same fields for vertical text. There are no separate ones, and hosts rely on the sameness:
  /// the argument is taken and has no effect.
  int getMoveX1V(bool) const { return getMoveX1(); }
  int getMoveX2V(bool) const { return getMoveX2(); }
  int getMoveXV(bool) const { return getMoveX(); }
  int getMoveY1V(bool) const { return getMoveY(); }
  int getWidthV(bool) const { return getWidth(); }
  ///@}

  /// Zeroes `moveX1`, `moveX2`, `moveY`, and `width` with them.
  void setZeroMove();

  /// All bits.
  int getFlag() const { return flag_; }
  /// Sets the given bits, and leaves the others.
  void setFlag(int bits) { flag_ = static_cast<unsigned short>(flag_ | bits); }
  /// Clears the given bits, and leaves the others.
  void clrFlag(int bits) { flag_ = static_cast<unsigned short>(flag_ & ~bits); }

  ///@{
  /// The glyph, 0xFFFF for none, and its class; setting the one leaves the other.
  unsigned short getGlyphID() const { return glyph_.glyphID; }
  void setGlyphID(unsigned short glyph) { glyph_.glyphID = glyph; }
  void setGlyphID(unsigned short glyph, GlyphClassDef cls) { glyph_ = {glyph, cls}; }
  GlyphClassDef getGlyphClassDef() const { return glyph_.glyphClass; }
  void setGlyphClassDef(GlyphClassDef cls) { glyph_.glyphClass = cls; }
  ///@}
  ///@{
  /// Glyph and class; the reference is to this record's own pair and lives as long as it.
  const GlyphIDClassPair& getGlyphIDClassPair() const { return glyph_; }
  void setGlyphIDClassPair(const GlyphIDClassPair& pair) { glyph_ = pair; }
  ///@}
  /// Whether there is a glyph, that is, an id other than 0xFFFF.
  bool hasGlyph() const { return glyph_.hasGlyph(); }
  /// The same as `hasGlyph`.
  bool hasGlyphInfo() const { return glyph_.hasGlyph(); }

  ///@{
  /// The decomposition type of the character (Unicode).
  UDecompositionType getDecompositionType() const { return decompositionType_; }
  void setDecompositionType(UDecompositionType type) { decompositionType_ = type; }
  ///@}
  ///@{
  /// The joining group of the character (Unicode).
  UJoiningGroup getJoiningGroup() const { return joiningGroup_; }
  void setJoiningGroup(UJoiningGroup group) { joiningGroup_ = group; }
  ///@}
  ///@{
  /// On a mark: the ligature component, from 1, or the run to which it belongs.
  int getSkipInfo() const { return skipInfo_; }
  void setSkipInfo(int info) { skipInfo_ = cut(info); }
  ///@}
  ///@{
  /// Not 0 on a component that mark-to-base passes over.
  int getCompInfo() const { return compInfo_; }
  void setCompInfo(int info) { compInfo_ = cut(info); }
  ///@}

  /// Places a glyph that stands for one character, unmoved and without flags.
  ///
  /// @param width its advance; taken as 0 where `glyph` is 0xFFFF. The last argument has no effect.
  void setGlyph(unsigned short glyph, GlyphClassDef cls, int width, bool unused);
  /// The same, but leaves the number of characters alone.
  void setGlyph2(const GlyphIDClassPair& pair, int width);
  /// Makes all as `GlyphIDPosition()` does.
  void clearGlyph();
  /// The same, but of class -2: the record is set aside.
  void ignoreGlyph();

 private:
  friend struct FS_LayoutTables;
  friend struct GlyphRecordAccess;

  // What `GPOS` does to a record. An argument of INT_MIN is absent.
  void addPosition(int xPlacement, int yPlacement, int xAdvance, int yAdvance);
  void addPosition2(int xPlacement, int yPlacement, int xAdvance, int yAdvance);
  void clearOutsideGPOSInfo();
  void placeAbsolutely(int xPlacement, int yPlacement, int xAdvance);
  void placeAdditively(int xPlacement, int yPlacement, int xAdvance, int yAdvance);

  static short cut(int value) { return static_cast<short>(static_cast<unsigned>(value)); }
  static short cut(int value, int more) {
    return static_cast<short>(static_cast<unsigned>(value) + static_cast<unsigned>(more));
  }

  short correspondLength_ = 0;
  short width_ = 0;
  short moveX1_ = 0;
  short moveX2_ = 0;
  short moveY_ = 0;
  unsigned short flag_ = 0;
  GlyphIDClassPair glyph_;
  UDecompositionType decompositionType_ = U_DT_ISOLATED;
  UJoiningGroup joiningGroup_ = U_JG_NO_JOINING_GROUP;
  short skipInfo_ = 0;
  short compInfo_ = 0;
};

}  // namespace QXFontService_NS
