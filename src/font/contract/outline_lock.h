#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The lock under which outlines are taken from FreeType faces, one for all fonts; taken before
/// the rendering lock of `FS_FontServices`, never after it.
QXLock& FS_OutlineLock();

}  // namespace QXFontService_NS
