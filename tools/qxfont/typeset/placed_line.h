#pragma once

#include <unicode/unistr.h>

#include <vector>

#include "qxfont/shape/feature_plan.h"
#include "qxfont/typeset/bidi.h"
#include "qxfont/typeset/shaper.h"

namespace qxfont {

/// A stretch of a line's text in one face and direction.
struct LineRun {
  int begin = 0;  ///< UTF-16 index in the text of the line
  int end = 0;
  std::size_t face = 0;
  bool missing = false;  ///< No face has these characters.
  UBiDiLevel level = 0;  ///< odd ones run from right to left
};

/// A line at its place: points from the lower left corner of the sheet.
struct PlacedLine {
  double x = 0;
  double baseline = 0;
  double size = 0;
  std::vector<Glyph> glyphs;     ///< from left to right
  icu::UnicodeString text = {};  ///< in its own order, and all of it in runs
  std::vector<LineRun> runs = {};
  double width = 0;          ///< points
  bool rightToLeft = false;  ///< the paragraph
  double grey = 0;           ///< from 0, which is black, to 1
  std::vector<FeatureSwitch> switches = {};
};

/// A filled rectangle: points from the lower left corner of the sheet.
struct Rule {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  double grey = 0;  ///< from 0, which is black, to 1
};

}  // namespace qxfont
