#pragma once

#include <string_view>

#include "qxfontservice/encoding_scheme.h"

namespace QXFontService_NS::type1 {

/// The encoding scheme of a name in a metric file or a font program; names are compared as they
/// stand, and any other name is a scheme of its own.
FS_EncodingScheme encodingSchemeOf(std::string_view name);

}  // namespace QXFontService_NS::type1
