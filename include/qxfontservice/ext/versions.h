#pragma once

#include <string>
#include <vector>

#include "qxcommon/export.h"

namespace QXFontService_NS::ext {

/// A library that the service runs on.
struct LibraryVersion {
  std::string name;     ///< such as "FreeType"
  std::string version;  ///< as the library tells it at run time
};

/// ICU, FreeType, zlib, expat and, where the service was built with it, fontconfig.
QX_EXPORT std::vector<LibraryVersion> libraryVersions();

}  // namespace QXFontService_NS::ext
