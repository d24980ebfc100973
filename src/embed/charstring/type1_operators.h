#pragma once

#include <string_view>

#include "embed/keyword/keyword.h"

namespace QXFontService_NS::charstring {

/// The one or two bytes of a Type 1 operator; empty for a keyword that is none.
[[nodiscard]] std::string_view type1Operator(embed::Keyword keyword);

}  // namespace QXFontService_NS::charstring
