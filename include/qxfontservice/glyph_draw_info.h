#pragma once

#include <vector>

namespace QXFontService_NS {

/// One closed contour of a glyph's outline, in font units.
struct FS_GlyphContour {
  struct Point {
    float x;
    float y;
  };
  std::vector<unsigned int> segments;  ///< 0 line, 1 quadratic, 2 cubic curve.
  std::vector<Point> points;           ///< The start, then 1, 2 or 3 points a segment.
};

/// Metrics and outline of one glyph in font units, as the rasterizer (FreeType) gives them.
struct FS_GlyphDrawInfo {
  int width = 0;
  int height = 0;
  int horiBearingX = 0;
  int horiBearingY = 0;
  int horiAdvance = 0;
  int vertBearingX = 0;
  int vertBearingY = 0;
  int vertAdvance = 0;
  int xMin = 0;  ///< xMin to yMax: the bounding box of the whole face.
  int yMin = 0;
  int xMax = 0;
  int yMax = 0;
  bool evenOddFill = false;  ///< Fill by the even-odd rule, not by the winding number.
  bool valid = false;        ///< The record was filled.
  std::vector<FS_GlyphContour> contours;
  /// xMin, yMin, xMax, yMax of all points, control points included; untouched by an empty outline.
  float bounds[4] = {0, 0, 0, 0};
};

}  // namespace QXFontService_NS
