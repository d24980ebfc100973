#pragma once

#include <cstddef>
#include <span>

namespace QXFontService_NS::layout {

/// The answer of a substitution that does not apply.
inline constexpr unsigned short kNoGlyph = 0xFFFF;

/// The substitute at a coverage index; none where there is no such one.
inline unsigned short substituteAt(std::span<const unsigned short> substitutes, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= substitutes.size()) return kNoGlyph;
  return substitutes[static_cast<std::size_t>(index)];
}

}  // namespace QXFontService_NS::layout
