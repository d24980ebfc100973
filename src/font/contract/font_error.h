#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

class FS_BaseFont;

/// Fills `out` with the text of a font-file error, its detail and the font's local path.
void FS_SetFontError(const FS_BaseFont& font, QXError& out, int code, const UnicodeString& detail);

/// The same where the record may be null: nothing is reported then.
void reportFontError(const FS_BaseFont& font, QXError* out, int code, const UnicodeString& detail);

}  // namespace QXFontService_NS
