#pragma once

#include <array>

#include "qxfontservice/names.h"

namespace QXFontService_NS::type1 {

/// What a metric font without a font program answers for the outlines that it does not have;
/// thousandths of an em, the angle in degrees.
struct StandardMetrics {
  float ascent;
  float descent;  ///< downward, above 0
  float yMax;
  float yMin;
  float xMin;
  float xMax;
  float italicAngle;
};

struct NamedStandardMetrics {
  const char16_t* name;
  StandardMetrics metrics;
};

/// The 14 standard fonts of PostScript printers.
extern const std::array<NamedStandardMetrics, 14> kStandardMetrics;

/// The row of a font's PostScript name, compared as font names are; null for any other font. It
/// lives as long as the process.
const StandardMetrics* findStandardMetrics(const UnicodeString& fontName);

}  // namespace QXFontService_NS::type1
