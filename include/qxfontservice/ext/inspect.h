#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/font_info.h"

namespace QXFontService_NS::ext {

/// The languages in which a face has names, for the name queries of `FS_FontInfo`.
///
/// @return the numbers of the `name` table, rising: Windows language ids, and for names that only
///   a Macintosh record gives Macintosh language codes, of which English is 0. Empty for an empty
///   handle and for fonts that have no `name` table.
/// Any thread; it asks the names that were read when the font was found.
QX_EXPORT std::vector<int> nameLanguages(const FS_FontInfo& font);

/// How many glyphs a face has, as `maxp` says; 0 for an empty handle and for fonts without one.
/// Any thread.
QX_EXPORT unsigned int glyphCount(const FS_FontInfo& font);

}  // namespace QXFontService_NS::ext
