#include "service/errors/font_error_text.h"

#include "qxcommon/error.h"

#include "service/errors/config_error.h"
#include "service/errors/errors_data.h"

namespace QXFontService_NS {

UnicodeString FS_FontErrorText(int code, const UnicodeString& detail) {
  std::u16string_view text = errors::findErrorText(errors::fontErrorTexts(), code);
  if (text.empty()) text = errors::unknownFontErrorText();
  UnicodeString result(text.data(), static_cast<int32_t>(text.size()));
  if (detail.isEmpty()) return result.append(u'.');
  return result.append(u": ", 2).append(detail);
}

QXError makeFontError(int code, const UnicodeString& detail, const UnicodeString& localPath) {
  UnicodeString text = FS_FontErrorText(code, detail);
  text.append(u'\n').append(localPath);
  return makeError(code, text);
}

}  // namespace QXFontService_NS
