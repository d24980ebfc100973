#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qxtest {

// Builders of the small sfnt tables: the fields that tests set, under the names of OpenType, with
// values of a plain upright text font of 1000 units. `build` writes the table.

struct HeadBuilder {
  unsigned unitsPerEm = 1000;
  int xMin = -50, yMin = -200, xMax = 950, yMax = 800;
  unsigned macStyle = 0;
  int indexToLocFormat = 0;
  [[nodiscard]] std::string build() const;
};

/// `hhea`, and `vhea`, which has the same layout.
struct HheaBuilder {
  int ascender = 800, descender = -200, lineGap = 90;
  unsigned advanceMax = 1000;
  unsigned numberOfMetrics = 2;
  [[nodiscard]] std::string build() const;
};

struct Os2Builder {
  unsigned version = 4;
  int xAvgCharWidth = 500;
  unsigned usWeightClass = 400, usWidthClass = 5, fsType = 0;
  unsigned familyClass = 0, familySubclass = 0;
  std::array<unsigned, 10> panose{};
  std::array<std::uint32_t, 4> ulUnicodeRange{1, 0, 0, 0};
  unsigned fsSelection = 0x40;
  unsigned usFirstCharIndex = 0x20, usLastCharIndex = 0x7E;
  int sTypoAscender = 750, sTypoDescender = -250, sTypoLineGap = 100;
  unsigned usWinAscent = 900, usWinDescent = 300;
  std::array<std::uint32_t, 2> ulCodePageRange{1, 0};
  int sxHeight = 480, sCapHeight = 700;
  unsigned usDefaultChar = 0, usBreakChar = 0x20, usMaxContext = 0;
  /// The size of the version: 78, 86, 96 or (from version 5) 100 bytes.
  [[nodiscard]] std::string build() const;
};

struct PostBuilder {
  std::uint32_t version = 0x00030000;
  std::int32_t italicAngle = 0;  // 16.16
  int underlinePosition = -100, underlineThickness = 50;
  std::uint32_t isFixedPitch = 0;
  [[nodiscard]] std::string build() const;
};

/// Version 1.0 with its thirteen further fields, or 0.5 with the glyph count alone.
struct MaxpBuilder {
  unsigned numGlyphs = 2;
  std::uint32_t version = 0x00010000;
  /// maxPoints to maxComponentDepth, in file order.
  std::array<unsigned, 13> limits{8, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0};
  [[nodiscard]] std::string build() const;
};

/// `hmtx` or `vmtx`: pairs of advance and side bearing, then bearings alone.
struct MetricsBuilder {
  std::vector<std::pair<unsigned, int>> metrics;
  std::vector<int> bearings;
  [[nodiscard]] std::string build() const;
};

}  // namespace qxtest
