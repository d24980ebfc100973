#pragma once

#include <map>

#include "font/contract/font_key.h"
#include "font/contract/font_ref.h"

namespace QXFontService_NS {

/// The faces of one family by style. The first insertion under a key wins: which font answers a
/// style is decided by who was found first.
using FS_FontFamily = std::map<FS_FontKey, FS_FontRef>;

}  // namespace QXFontService_NS
