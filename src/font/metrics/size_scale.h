#pragma once

#include <cstdint>

namespace QXFontService_NS::metrics {

/// What sizes are measured by, in font units.
struct SizeBases {
  int cellHeight = 0;  ///< `usWinAscent` + `usWinDescent`: the base of a positive size
  int unitsPerEm = 0;  ///< the base of a negative size
};

/// `value` / `base` x `factor` in single precision, the division first; 0 for a base of 0.
[[nodiscard]] inline float scaled(std::int64_t value, int base, std::int64_t factor) {
  if (base == 0) return 0.0F;
  return static_cast<float>(value) / static_cast<float>(base) * static_cast<float>(factor);
}

/// `value` (font units) at `size`, which means what the height of a Windows logical font means:
/// the cell height if positive, the em if negative; 0 leaves font units.
[[nodiscard]] inline float scaleToSize(std::int64_t value, int size, const SizeBases& bases) {
  if (size > 0) return scaled(value, bases.cellHeight, size);
  if (size < 0) return scaled(value, bases.unitsPerEm, -std::int64_t{size});
  return static_cast<float>(value);
}

/// A kerning value at `size`. Required to be lopsided: only a negative size scales, by the em; zero
/// and positive sizes leave font units, and hosts that lay out by cell height count on it.
[[nodiscard]] inline float scaleKerning(std::int16_t value, int size, int unitsPerEm) {
  if (size >= 0) return static_cast<float>(value);
  return scaled(value, unitsPerEm, -std::int64_t{size});
}

/// `value` (font units) in em.
[[nodiscard]] inline float inEm(int value, int unitsPerEm) {
  return scaled(value, unitsPerEm, 1);
}

/// A height of letters in em; a value below 1 means that the font does not tell: 0.
[[nodiscard]] inline float letterHeightInEm(int value, int unitsPerEm) {
  return value < 1 ? 0.0F : inEm(value, unitsPerEm);
}

}  // namespace QXFontService_NS::metrics
