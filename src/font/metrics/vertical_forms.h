#pragma once

#include <cstddef>
#include <cstdint>

#include "font/metrics/mort.h"

namespace QXFontService_NS::metrics {

/// Whether a font counts as one with vertical forms: it has features in `GSUB`, whatever they are,
/// or vertical pairs in `mort`.
[[nodiscard]] inline bool hasVerticalForms(std::size_t gsubFeatureCount, const MortPairs& mort) {
  return gsubFeatureCount > 0 || !mort.empty();
}

/// The glyph that stands for `glyph` in vertical text.
///
/// `gsub(glyph)` asks the vertical lookups of `GSUB` and answers `kNoGlyph` where all of them miss;
/// only then `mort` is asked, and where that misses too the horizontal glyph stands. No glyph stays
/// no glyph.
template <class Gsub>
[[nodiscard]] std::uint16_t verticalGlyph(std::uint16_t glyph, const Gsub& gsub,
                                          const MortPairs& mort) {
  if (glyph == kNoGlyph) return kNoGlyph;
  if (const std::uint16_t form = gsub(glyph); form != kNoGlyph) return form;
  const std::uint16_t form = mort.verticalOf(glyph);
  return form != kNoGlyph ? form : glyph;
}

}  // namespace QXFontService_NS::metrics
