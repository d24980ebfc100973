#pragma once

#include <array>

#include "qxfontservice/names.h"

#include "type1/maps/standard_metrics.h"

namespace QXFontService_NS {
class FS_NewTextMetricEx;
}

namespace QXFontService_NS::type1 {

/// What the text metrics of a Type 1 font are made of; thousandths of an em.
struct TextMetrics {
  std::array<float, 4> box{};  ///< left, bottom, right, top
  float ascent = 0, descent = 0;
  float capHeight = 0;
  float em = 1000;  ///< what a negative size is measured by
  float internalLeading = 0;
  float externalLeading = 0, avgWidth = 0, maxWidth = 0;
  float italicAngle = 0;
  bool isFixedPitch = false, isSymbolic = false;
  unsigned family = 0;  ///< further bits of the pitch and family

  /// Heights, box and angle of a standard font.
  void takeStandard(const StandardMetrics& standard);
  /// Fills the record for a size: negative, that of the em; otherwise the height of the box.
  void fill(FS_NewTextMetricEx& out, int size) const;
};

/// The style of a full name: what stands behind the family, trimmed; the weight's name where the
/// two are equal; empty where the full name begins with something else.
UnicodeString styleName(const UnicodeString& fullName, const UnicodeString& family,
                        const UnicodeString& weight);

}  // namespace QXFontService_NS::type1
