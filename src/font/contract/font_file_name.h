#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The name of a font file as it is spelled, ordered and found by its lower-case form.
struct FS_FontFileName {
  UnicodeString lowerName;
  UnicodeString name;

  bool operator<(const FS_FontFileName& other) const { return lowerName < other.lowerName; }
};

/// The name with its key, lower-cased by the rules of no particular language.
inline FS_FontFileName makeFontFileName(const UnicodeString& name) {
  FS_FontFileName result;
  result.name = name;
  result.lowerName = name;
  result.lowerName.toLower(Locale::getRoot());
  return result;
}

}  // namespace QXFontService_NS
