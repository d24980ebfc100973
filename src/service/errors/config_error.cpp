#include "service/errors/config_error.h"

#include "qxcommon/error.h"
#include "qxcommon/lang.h"
#include "qxcommon/message.h"
#include "qxcommon/name.h"
#include "qxcommon/util.h"
#include "qxfontservice/error_codes.h"

#include "service/errors/error_sink.h"
#include "service/errors/errors_data.h"

namespace QXFontService_NS {
namespace {

UnicodeString toString(std::u16string_view text) {
  return UnicodeString(text.data(), static_cast<int32_t>(text.size()));
}

QXError makeServiceError(int code) {
  const UnicodeString digits = QXUtil::formatNumber(code, u"1", UnicodeString(), 0, QXLang(),
                                                    QXCommonNS::QXNAME_NUMBER_FORMAT);
  const UnicodeString none;
  return makeError(FS_ERROR_SERVICE, QXCommonNS::QXMessage(toString(errors::serviceErrorText()),
                                                           digits, none, none, none, none));
}

}  // namespace

QXError makeError(int code, const UnicodeString& text) {
  return QXError(static_cast<unsigned short>(code), text, UnicodeString(), -1, -1, UnicodeString());
}

QXError makeConfigError(int code, const UnicodeString& a, const UnicodeString& b,
                        const UnicodeString& c, const UnicodeString& d) {
  const std::u16string_view text = errors::findErrorText(errors::configErrorTexts(), code);
  if (text.empty()) return makeServiceError(code);
  return makeError(code, QXCommonNS::QXMessage(toString(text), a, b, c, d, UnicodeString()));
}

void FS_ConfigError(int code, const UnicodeString& a, const UnicodeString& b,
                    const UnicodeString& c, const UnicodeString& d) {
  const QXError error = makeConfigError(code, a, b, c, d);
  if (QXCommonNS::getErrorLevel(error.getErrorCode()) != QXCommonNS::QXERRORLEVEL_COLLECT)
    throw error;
  collectError(error);
}

}  // namespace QXFontService_NS
