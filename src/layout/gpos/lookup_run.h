#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "layout/gpos/position_run.h"
#include "layout/table/lookup_list.h"

namespace QXFontService_NS::layout {

/// Runs `GPOS` lookups with the lookups nested in them. One object serves a whole call of a
/// driver.
///
/// What a lookup does is decided by what never changes in a call, and by its position. So a lookup
/// that is met again at the position where it is in progress would never end, and does nothing.
/// Rules in progress stand on a heap stack.
class LookupRun {
 public:
  LookupRun(const FS_LayoutTables& font, const TTI_LookupList& lookups, PositionRun& glyphs,
            bool rightToLeft)
      : font_(font), lookups_(lookups), glyphs_(glyphs), rightToLeft_(rightToLeft) {}

  /// Runs the subtables of a lookup of the list in order, up to the first that applies.
  ///
  /// @param position a glyph of the run; a pair may move it on, also without applying
  /// @return whether a subtable applied
  bool applyGPOSLookup(const TTI_Lookup& lookup, int& position);

 private:
  /// A lookup at a position.
  using Place = std::uint64_t;

  /// A lookup in progress: subtables to try, and records to run before.
  struct Frame {
    const TTI_Lookup* lookup = nullptr;
    Place place = 0;
    std::size_t nextSubTable = 0;
    PositionRun::Records records;  ///< of the rule that matched, those still to run
    bool applied = false;
  };

  [[nodiscard]] Frame begin(const TTI_Lookup& lookup) const;
  bool trySubTables(Frame& frame);
  bool runToEnd();
  void runRecord(unsigned lookupIndex);
  void enter(const Frame& frame);
  void leave();
  [[nodiscard]] bool isInProgress(Place place) const;

  const FS_LayoutTables& font_;
  const TTI_LookupList& lookups_;
  PositionRun& glyphs_;
  bool rightToLeft_;
  int position_ = 0;
  std::vector<Frame> frames_;
  std::unordered_set<Place> deepPlaces_;  ///< of the frames beyond those that are walked
};

}  // namespace QXFontService_NS::layout
