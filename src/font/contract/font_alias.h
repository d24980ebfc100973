#pragma once

#include <set>

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// A further name of a font file and the style it stands for, ordered by the name alone.
struct FS_FontAlias {
  UnicodeString familyName;
  int weight = -1;  ///< -1: not given.
  int italic = -1;  ///< -1: not given.
  int stretch = 0;  ///< 0: not given.

  bool operator<(const FS_FontAlias& other) const { return familyName < other.familyName; }
};

/// The further names of one face of a font file.
struct FS_FontFileAliases {
  int entry = 0;  ///< Index of the face.
  std::set<FS_FontAlias> aliases;
};

}  // namespace QXFontService_NS
