#include "layout/gpos/position_run.h"

#include "layout/gpos/record_flag.h"
#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS::layout {

bool PositionRun::isAbsolute(int i) const {
  return ((*this)[i].getFlag() & kAbsolute) != 0;
}

const GlyphSequence& PositionRun::pairs() {
  if (!sequence_) {
    std::vector<GlyphIDClassPair>& pairs = GlyphRecordAccess::pairs(pairs_);
    pairs.reserve(glyphs_.size());
    for (const GlyphIDPosition& glyph : glyphs_) pairs.push_back(glyph.getGlyphIDClassPair());
    sequence_.emplace(pairs_, meter_);
  }
  return *sequence_;
}

void PositionRun::addValue(int i, int xPlacement, int yPlacement, int xAdvance, int yAdvance) {
  touch(i);
  GlyphRecordAccess::addPosition2(glyphs_[static_cast<std::size_t>(i)], xPlacement, yPlacement,
                                  xAdvance, yAdvance);
}

// Placements are cut to the 16 bits that records have anyway, so that none is taken for absent.
void PositionRun::attach(int i, int x, int y) {
  constexpr int kAbsent = GlyphRecordAccess::kAbsent;
  touch(i);
  GlyphRecordAccess::addPosition(glyphs_[static_cast<std::size_t>(i)], static_cast<short>(x),
                                 static_cast<short>(y), kAbsent, kAbsent);
}

unsigned PositionRun::sumOfMoves(int first, int end) {
  if (first != sumFirst_ || end < sumEnd_) {
    sumFirst_ = sumEnd_ = first;
    sum_ = 0;
  }
  // Counted behind the search that found `first`: the next one fails, never half a sum.
  static_cast<void>(spend(end - sumEnd_));
  for (; sumEnd_ < end; ++sumEnd_) sum_ += static_cast<unsigned>((*this)[sumEnd_].getMoveX());
  return sum_;
}

/// A sum over a glyph that moves is no longer right.
void PositionRun::touch(int i) {
  if (i < sumFirst_ || i >= sumEnd_) return;
  sumEnd_ = sumFirst_;
  sum_ = 0;
}

}  // namespace QXFontService_NS::layout
