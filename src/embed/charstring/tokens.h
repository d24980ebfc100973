#pragma once

#include <vector>

#include "qxcommon/value.h"

namespace QXFontService_NS {

/// A charstring taken apart: integers, reals, and operators as keywords. The keyword 0 is an
/// operator that has no word.
using FS_CharStringTokens = std::vector<QXCommonNS::QXValue>;

}  // namespace QXFontService_NS
