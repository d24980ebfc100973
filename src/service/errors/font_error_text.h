#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The text of a font-file error: "Font read error: detail", or "Font read error." without detail.
/// Codes without a text, those of the configuration among them, have one text in common.
UnicodeString FS_FontErrorText(int code, const UnicodeString& detail);

/// The record of a font-file error: the text above, a line feed, and the file's local path.
QXError makeFontError(int code, const UnicodeString& detail, const UnicodeString& localPath);

}  // namespace QXFontService_NS
