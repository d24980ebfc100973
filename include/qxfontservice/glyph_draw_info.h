#pragma once

#include <vector>

namespace QXFontService_NS {

/// One closed contour of a glyph's outline, in font units.
struct FS_GlyphContour {
  /// A point of the outline, on it or a control point.
  struct Point {
    float x;  ///< rightward
    float y;  ///< upward
  };
  std::vector<unsigned int> segments;  ///< 0 line, 1 quadratic, 2 cubic curve.
  std::vector<Point> points;           ///< The start, then 1, 2 or 3 points a segment.
};

/// Metrics and outline of one glyph in font units, as the rasterizer (FreeType) gives them.
struct FS_GlyphDrawInfo {
  int width = 0;                          ///< Of the glyph's box.
  int height = 0;                         ///< Of the glyph's box.
  int horiBearingX = 0;                   ///< From the origin to the left side of the box.
  int horiBearingY = 0;                   ///< From the baseline up to the top of the box.
  int horiAdvance = 0;                    ///< To the next origin, rightward.
  int vertBearingX = 0;                   ///< From the vertical origin to the left side of the box.
  int vertBearingY = 0;                   ///< From the vertical origin down to the top of the box.
  int vertAdvance = 0;                    ///< To the next origin, downward.
  int xMin = 0;                           ///< xMin to yMax: the bounding box of the whole face.
  int yMin = 0;                           ///< See `xMin`.
  int xMax = 0;                           ///< See `xMin`.
  int yMax = 0;                           ///< See `xMin`.
  bool evenOddFill = false;               ///< Fill by the even-odd rule, not by the winding number.
  bool valid = false;                     ///< The record was filled.
  std::vector<FS_GlyphContour> contours;  ///< Empty for a glyph that shows nothing.
  /// xMin, yMin, xMax, yMax of all points, control points included; untouched by an empty outline.
  float bounds[4] = {0, 0, 0, 0};
};

}  // namespace QXFontService_NS
