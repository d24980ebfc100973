#pragma once

#include <cstddef>
#include <vector>

namespace QXFontService_NS {

/// A run of a charset: keys `first` to `last` stand for `mappedFirst` and the numbers behind it.
struct FS_CFFRange {
  unsigned short first = 0;
  unsigned short last = 0;
  unsigned short mappedFirst = 0;
};

/// The Font DICT of a run of glyphs of a CID-keyed font.
struct FS_FDRange {
  unsigned short first = 0;
  unsigned short last = 0;
  unsigned char fd = 0;
};

namespace cff {

/// The range that holds `key`, by halving, or null. With ranges that overlap (damaged fonts) any
/// that holds it.
template <class Range>
[[nodiscard]] const Range* findRange(const std::vector<Range>& ranges, unsigned short key) {
  std::size_t low = 0;
  std::size_t high = ranges.size();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (key < ranges[middle].first) {
      high = middle;
    } else if (key > ranges[middle].last) {
      low = middle + 1;
    } else {
      return &ranges[middle];
    }
  }
  return nullptr;
}

}  // namespace cff
}  // namespace QXFontService_NS
