#pragma once

#include "qxfontservice/names.h"

#include "common/text/root_case.h"

namespace QXFontService_NS {

/// The name of a font file as it is spelled, ordered and found by its lower-case form.
struct FS_FontFileName {
  UnicodeString lowerName;
  UnicodeString name;

  bool operator<(const FS_FontFileName& other) const { return lowerName < other.lowerName; }
};

/// The name with its key, lower-cased by the rules of no particular language.
inline FS_FontFileName makeFontFileName(const UnicodeString& name) {
  return {QXCommonNS::lowerCase(name), name};
}

}  // namespace QXFontService_NS
