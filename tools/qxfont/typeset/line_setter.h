#pragma once

#include <unicode/unistr.h>

#include <set>
#include <vector>

#include "qxfont/shape/feature_plan.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/placed_line.h"
#include "qxfont/typeset/shaper.h"

namespace qxfont {

/// How a text is set.
struct LineStyle {
  std::size_t face = 0;
  double size = 0;   ///< points
  double width = 0;  ///< of a full line, in points
  double grey = 0;   ///< from 0, which is black, to 1
  std::vector<FeatureSwitch> switches = {};
};

/// Sets texts as lines that have no place on a page yet.
class LineSetter {
 public:
  LineSetter(const FontSet& fonts, const Shaper& shaper) : fonts_(fonts), shaper_(shaper) {}

  /// The lines of a paragraph, with `x` from the left end of a full line: those of text from right
  /// to left stand at its right end. Their baselines are 0.
  std::vector<PlacedLine> set(const icu::UnicodeString& text, const LineStyle& style);

  /// The characters that no face had; a `.notdef` stands in their place.
  [[nodiscard]] const std::set<int>& missing() const { return missing_; }

 private:
  const FontSet& fonts_;
  const Shaper& shaper_;
  std::set<int> missing_;
};

}  // namespace qxfont
