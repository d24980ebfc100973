#pragma once

#include <set>

#include "font/names/font_names.h"

namespace QXFontService_NS::names {

/// The names under which the pool enters a font: family, full and PostScript name in every
/// language, and with `preferredFamily` the preferred family.
std::set<UnicodeString> poolNames(const FontNames& names, bool preferredFamily);

}  // namespace QXFontService_NS::names
