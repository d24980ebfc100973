#include "layout/table/glyph_set.h"

namespace QXFontService_NS::layout {

void GlyphSet::addRange(unsigned short first, unsigned short last) {
  if (last < first) return;
  const std::size_t low = first / kBits;
  const std::size_t high = last / kBits;
  if (words_.size() <= high) words_.resize(high + 1);
  const std::uint64_t fromFirst = ~std::uint64_t{0} << first % kBits;
  const std::uint64_t toLast = ~std::uint64_t{0} >> (kBits - 1 - last % kBits);
  if (low == high) {
    words_[low] |= fromFirst & toLast;
    return;
  }
  words_[low] |= fromFirst;
  for (std::size_t word = low + 1; word < high; ++word) words_[word] = ~std::uint64_t{0};
  words_[high] |= toLast;
}

}  // namespace QXFontService_NS::layout
