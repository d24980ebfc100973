#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The character collection of a CID-keyed font (Adobe Technical Note 5014).
struct FS_CIDSystemInfo {
  UnicodeString Registry;  ///< who issues the collection, such as "Adobe"
  UnicodeString Ordering;  ///< its name, such as "Japan1"
  int Supplement = 0;      ///< its version
};

}  // namespace QXFontService_NS
