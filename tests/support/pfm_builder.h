#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qxtest {

/// Writes a Printer Font Metrics file; numbers are little-endian and stand where the format has
/// them.
struct PfmBuilder {
  std::string copyright = "(c) Nobody";
  unsigned ascent = 750, internalLeading = 100;
  bool italic = false;
  unsigned weight = 400, charSet = 0;
  unsigned pitchAndFamily = 0x11;
  unsigned avgWidth = 500, maxWidth = 900;
  unsigned firstChar = 32, lastChar = 34;
  std::string device = "PostScript", face = "Made", font = "Made-Roman";
  std::vector<unsigned> widths{250, 333, 408};
  std::vector<std::pair<std::pair<unsigned, unsigned>, int>> kernPairs;
  unsigned masterHeight = 1000, xHeight = 450;
  bool hasTextMetrics = true, hasDevice = true, hasWidths = true;

  [[nodiscard]] std::string build() const;
};

}  // namespace qxtest
