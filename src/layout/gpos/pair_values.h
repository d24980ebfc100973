#pragma once

#include "layout/gpos/value_record.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS::layout {

/// The value formats of a pair subtable, and what its two formats share.
class PairValues {
 public:
  PairValues(unsigned format1, unsigned format2)
      : format1_(format1), format2_(format2), size1_(format1_.size()), size2_(format2_.size()) {}

  [[nodiscard]] bool move() const { return format1_.moves() || format2_.moves(); }
  /// Bytes of both values.
  [[nodiscard]] std::size_t size() const { return size1_ + size2_; }

  /// Applies the values at `at`. Whether either moves anything.
  bool apply(PositionRun& glyphs, int first, int second, const QXCommonNS::bytes::ByteView& bytes,
             std::uint64_t at) const;
  /// Moves on to the second glyph, if it has a value of any kind, else to the one before it: the
  /// driver takes the next step from there. Only hosts that place absolutely count on it, others
  /// get each glyph as a first one.
  void moveOn(const PositionRun& glyphs, int& position, int second) const;

 private:
  ValueFormat format1_;
  ValueFormat format2_;
  std::size_t size1_;
  std::size_t size2_;
};

/// The place of the second glyph of the pair that begins at `position`; -1 if there is none. Kept:
/// the lookup's flag passes over glyphs only where the first one is placed absolutely; elsewhere
/// the second glyph is the next one, whatever it is.
int secondOfPair(const FS_LayoutTables& font, const TTI_Lookup& lookup, PositionRun& glyphs,
                 int position);

}  // namespace QXFontService_NS::layout
