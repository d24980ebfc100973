#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace QXFontService_NS::type1 {

/// What a Printer Font Metrics file tells (Windows 3.x Device Development Kit). Texts are bytes in
/// the code page of `charSet`; lengths are thousandths of an em.
struct PfmMetrics {
  std::string copyright, deviceName, faceName, fontName;
  float ascent = 0, internalLeading = 0, avgWidth = 0, maxWidth = 0;
  float xHeightRatio = 0;  ///< of the height that the metrics are for
  bool italic = false;
  int weight = 0;
  std::uint8_t charSet = 0;
  int pixWidth = 0, pixHeight = 0;
  std::uint8_t pitchAndFamily = 0, firstChar = 0, lastChar = 0, breakChar = 0;
  std::vector<std::uint16_t> widths;  ///< from `firstChar` on; empty without a table
  std::map<std::pair<std::uint8_t, std::uint8_t>, std::int16_t> kernPairs;  ///< by character codes
};

}  // namespace QXFontService_NS::type1
