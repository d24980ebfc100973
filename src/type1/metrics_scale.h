#pragma once

#include <cstdint>
#include <cstdlib>

namespace QXFontService_NS::type1 {

// Sizes mean what the height of a Windows logical font means: negative, the em; otherwise the
// height of the font's box. Single precision, the division first.

inline constexpr float kEm = 1000;

/// `value` at `size`; 0 where the box has no height.
inline float scaledToSize(float value, int size, float boxHeight) {
  const float base = size < 0 ? kEm : boxHeight;
  if (base == 0) return 0;
  return value / base * static_cast<float>(std::abs(std::int64_t{size}));
}

/// A kerning value: a negative size scales, others leave thousandths of an em.
inline float scaledKerning(float value, int size) {
  return size < 0 ? value / kEm * static_cast<float>(-std::int64_t{size}) : value;
}

}  // namespace QXFontService_NS::type1
