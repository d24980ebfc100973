#pragma once

#include <string_view>

#include "type1/afm/afm_metrics.h"

namespace QXFontService_NS::type1 {

/// Reads what stands behind the code on a line of glyph metrics: " ; WX 500 ; N A ; B 0 0 1 1 ;".
///
/// A token counts as a key when the key begins with it: files that cut keys short are read.
AFMCharMetric readCharMetric(int code, std::string_view rest);

}  // namespace QXFontService_NS::type1
