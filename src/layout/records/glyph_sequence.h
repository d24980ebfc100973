#pragma once

#include "qxfontservice/glyph_id_array.h"

#include "layout/guard/work_meter.h"
#include "layout/records/glyph_record_access.h"

namespace QXFontService_NS::layout {

/// The glyphs that lookups match, as a view. Whoever walks an array and changes it keeps a gap at
/// the place of work, so that a change does not move the rest; a view reads over the gap.
///
/// It carries the meter of the call, on which matchers count their comparisons.
class GlyphSequence {
 public:
  GlyphSequence(const GlyphIDArray& array, WorkMeter& meter)
      : pairs_(GlyphRecordAccess::pairs(array).data()),
        size_(array.size()),
        gapStart_(array.size()),
        meter_(&meter) {}
  /// `size` glyphs from `pairs` on, and behind the first `gapStart` of them `gapLength` places that
  /// do not count.
  GlyphSequence(const GlyphIDClassPair* pairs, int size, int gapStart, int gapLength,
                WorkMeter& meter)
      : pairs_(pairs), size_(size), gapStart_(gapStart), gapLength_(gapLength), meter_(&meter) {}

  [[nodiscard]] int size() const { return size_; }
  /// The glyph at `i`, which must be inside.
  const GlyphIDClassPair& operator[](int i) const {
    return pairs_[i < gapStart_ ? i : i + gapLength_];
  }

  /// Counts comparisons; false once the call has spent what it may. The match then fails.
  [[nodiscard]] bool spend(int comparisons) const { return meter_->compare(comparisons); }
  /// Whether something is left to spend: asked before each walk along the glyphs.
  [[nodiscard]] bool mayWalk() const { return meter_->compare(0); }
  [[nodiscard]] WorkMeter& meter() const { return *meter_; }

 private:
  const GlyphIDClassPair* pairs_;
  int size_;
  int gapStart_;
  int gapLength_ = 0;
  WorkMeter* meter_;
};

}  // namespace QXFontService_NS::layout
