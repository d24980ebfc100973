#pragma once

#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "qxfontservice/glyph_id_position.h"

#include "layout/gpos/left_search.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS::layout {

/// The glyphs that one call of a `GPOS` driver works on, with what is kept from one subtable to
/// the next. All moves go through it. Glyph ids, classes, widths and the flag bits that are read
/// here never change in such a call.
class PositionRun {
 public:
  using Records = std::span<const TTI_SubstLookupRecord>;

  PositionRun(std::vector<GlyphIDPosition>& glyphs, const WorkMeter& meter)
      : glyphs_(glyphs), meter_(meter) {}
  PositionRun(const PositionRun&) = delete;
  PositionRun& operator=(const PositionRun&) = delete;

  [[nodiscard]] int size() const { return static_cast<int>(glyphs_.size()); }
  const GlyphIDPosition& operator[](int i) const { return glyphs_[static_cast<std::size_t>(i)]; }
  [[nodiscard]] bool isAbsolute(int i) const;
  /// The glyphs as contextual rules match them; copied once a call.
  const GlyphSequence& pairs();
  WorkMeter& meter() { return meter_; }
  /// Counts comparisons; false once the call has spent what it may. The search then fails.
  [[nodiscard]] bool spend(int comparisons) { return meter_.compare(comparisons); }

  /// Moves a glyph, adding: all four numbers of a value record, with absent ones.
  void addValue(int i, int xPlacement, int yPlacement, int xAdvance, int yAdvance);
  /// Moves an attached glyph: sets where it is placed absolutely, and adds elsewhere.
  void attach(int i, int x, int y);
  /// Changes the moves of a glyph directly, by `change(record)`.
  template <class Change>
  void changeDirectly(int i, Change change) {
    touch(i);
    change(glyphs_[static_cast<std::size_t>(i)]);
  }
  /// The sum of `moveX1` + `moveX2` over [first, end), as the glyphs stand now; it wraps.
  unsigned sumOfMoves(int first, int end);

  /// What a mark looks for before it. Those with a lookup's flag need it as condition.
  enum class Sought : unsigned {
    base,
    baseSeeingZeroWidth,
    baseButNoComponent,
    baseSeeingZeroWidthButNoComponent,
    notMark,
    notSkipped,
    notSkippedOrBase,
  };
  /// The last place below `place` for which `meets(place)`; -1 if there is none, or if the call
  /// has spent what it may. One kind of search must always have the same `meets`.
  template <class Meets>
  int findBefore(int place, Sought sought, unsigned condition, Meets meets) {
    int steps = 1;
    const int found =
        searches_[static_cast<std::size_t>(sought)].before(place, condition, meets, steps);
    return spend(steps) ? found : -1;
  }

  /// Where a contextual subtable leaves the records of the rule that matched: whoever called its
  /// `position` runs them, on a stack of its own.
  void leaveRecords(Records records) { records_ = records; }
  /// Takes what was left, if anything.
  Records takeRecords() { return std::exchange(records_, {}); }
  /// Room for the places that a rule passed over; positioning has no use for them.
  std::vector<int>& passedOver() { return passedOver_; }

 private:
  void touch(int i);

  std::vector<GlyphIDPosition>& glyphs_;
  WorkMeter meter_;
  GlyphIDArray pairs_;
  std::optional<GlyphSequence> sequence_;
  std::array<LeftSearch, 7> searches_;
  Records records_;
  std::vector<int> passedOver_;

  // The sum that was asked for last, over [sumFirst_, sumEnd_).
  int sumFirst_ = 0;
  int sumEnd_ = 0;
  unsigned sum_ = 0;
};

}  // namespace QXFontService_NS::layout
