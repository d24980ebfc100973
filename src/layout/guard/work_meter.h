#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "layout/guard/limits.h"
#include "layout/guard/spent_budgets.h"

namespace QXFontService_NS::layout {

/// What one call of a driver may still spend on a damaged font: glyph comparisons, and runs of
/// nested lookups. Once spent, matches fail and nested lookups do nothing. It also knows how long
/// the glyphs may become.
class WorkMeter {
 public:
  WorkMeter(std::int64_t comparisons, std::int64_t nestedRuns, std::size_t nestingLevels,
            std::int64_t mostGlyphs = kMostGrownGlyphs)
      : comparisons_(comparisons),
        nestedRuns_(nestedRuns),
        nestingLevels_(nestingLevels),
        mostGlyphs_(mostGlyphs) {}

  /// For a call that works at one position of `length` glyphs.
  static WorkMeter forStep(int length) { return forLength(length, kMostNestedRuns); }
  /// For a call that works at all of `length` glyphs.
  static WorkMeter forPass(int length) {
    return forLength(length, std::max(kMostNestedRuns, kNestedRunsPerGlyph * length));
  }

  /// Takes `count` glyph comparisons; false once they are spent.
  bool compare(std::int64_t count) {
    if (comparisons_ < 0) return false;
    comparisons_ -= count;
    if (comparisons_ < 0) noteSpent(spentBudgets().comparisons);
    return comparisons_ >= 0;
  }
  /// Takes one run of a nested lookup; false once they are spent.
  bool runNested() {
    if (nestedRuns_ < 0) return false;
    if (--nestedRuns_ < 0) noteSpent(spentBudgets().nestedRuns);
    return nestedRuns_ >= 0;
  }
  /// How many lookups may be in progress within one another.
  [[nodiscard]] std::size_t nestingLevels() const { return nestingLevels_; }
  /// Whether lookups that expand may make as many glyphs.
  [[nodiscard]] bool mayGrowTo(std::int64_t glyphs) const {
    if (glyphs <= mostGlyphs_) return true;
    noteSpent(spentBudgets().growth);
    return false;
  }

 private:
  static WorkMeter forLength(int length, std::int64_t nestedRuns) {
    return {kMostComparisons + kComparisonsPerGlyph * length, nestedRuns,
            std::max(kMostNestingLevels, static_cast<std::size_t>(length)),
            std::max(kMostGrownGlyphs, kGrowthPerGlyph * length)};
  }

  std::int64_t comparisons_;
  std::int64_t nestedRuns_;
  std::size_t nestingLevels_;
  std::int64_t mostGlyphs_;
};

}  // namespace QXFontService_NS::layout
