#include "harness/glyph_draw.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace qxbench {

std::vector<unsigned short> drawGlyphs(unsigned glyphs, std::size_t count) {
  const std::size_t most = glyphs > 1 ? glyphs - 1 : 0;
  std::set<unsigned short> drawn;
  std::uint64_t state = 42;
  while (drawn.size() < std::min(count, most)) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    const auto glyph = static_cast<unsigned short>((state >> 33) % glyphs);
    if (glyph != 0) drawn.insert(glyph);
  }
  return {drawn.begin(), drawn.end()};
}

}  // namespace qxbench
