#pragma once

#include <compare>

namespace QXFontService_NS {

/// The style under which a face stands in a family, ordered by weight, then italic, then stretch.
struct FS_FontKey {
  int weight = 400;        ///< Scale of OpenType usWeightClass.
  signed char italic = 0;  ///< 0 or 1 only, or equal styles would differ.
  int stretch = 5;         ///< Scale of OpenType usWidthClass.

  friend auto operator<=>(const FS_FontKey&, const FS_FontKey&) = default;
};

/// The key of a style; weight 0 counts as 400 and stretch 0 as 5, everything else as it comes.
inline FS_FontKey makeFontKey(int weight, bool italic, int stretch) {
  FS_FontKey key;
  if (weight != 0) key.weight = weight;
  key.italic = italic ? 1 : 0;
  if (stretch != 0) key.stretch = stretch;
  return key;
}

}  // namespace QXFontService_NS
