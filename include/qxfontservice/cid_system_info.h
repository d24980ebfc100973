#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The character collection of a CID-keyed font (Adobe Technical Note 5014).
struct FS_CIDSystemInfo {
  UnicodeString Registry;
  UnicodeString Ordering;
  int Supplement = 0;
};

}  // namespace QXFontService_NS
