#include "font/contract/font_error.h"

#include "qxcommon/error.h"

#include "font/contract/base_font.h"
#include "service/errors/font_error_text.h"

namespace QXFontService_NS {

void FS_SetFontError(const FS_BaseFont& font, QXError& out, int code, const UnicodeString& detail) {
  out = makeFontError(code, detail, font.fileUri().getLocalPath(false));
}

void reportFontError(const FS_BaseFont& font, QXError* out, int code, const UnicodeString& detail) {
  if (out != nullptr) FS_SetFontError(font, *out, code, detail);
}

}  // namespace QXFontService_NS
