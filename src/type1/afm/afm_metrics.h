#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "qxfontservice/encoding_scheme.h"

namespace QXFontService_NS {

/// The metrics of a glyph in an Adobe Font Metrics file; thousandths of an em.
struct AFMCharMetric {
  int code = -1;  ///< -1: not encoded
  int width = 0;
  int height = 0;
  std::string name;
  std::array<int, 4> box{};
};

namespace type1 {

/// What an Adobe Font Metrics file tells (Adobe Technical Note 5004). Texts are bytes as they stand
/// in the file; lengths are thousandths of an em.
struct AfmMetrics {
  std::string fontName, fullName, familyName, copyright, weightName;
  int weight = 0;  ///< 0 without a `Weight` line
  bool isFixedPitch = false;
  float italicAngle = 0, underlinePosition = 0, underlineThickness = 0;
  float capHeight = 0, xHeight = 0, ascender = 0, descender = 0;
  float stdHW = 0, stdVW = 0;
  int metricsSet = 0;
  std::string encodingName;
  FS_EncodingScheme encodingScheme = FS_EncodingScheme(0);
  std::array<float, 4> fontBBox{};  ///< left, bottom, right, top
  std::vector<AFMCharMetric> charMetrics;
  int kernCount = 0;  ///< lines of pairs, those that name no character among them
  std::map<std::pair<int, int>, float> kernPairs;  ///< by the characters of the two glyphs

  [[nodiscard]] int charCount() const { return static_cast<int>(charMetrics.size()); }
  [[nodiscard]] float boxHeight() const { return fontBBox[3] - fontBBox[1]; }
};

}  // namespace type1
}  // namespace QXFontService_NS
