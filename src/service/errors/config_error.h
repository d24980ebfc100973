#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// Reports an error of the configuration or the service.
///
/// The four texts fill {0} to {3} of the code's text. A code without a text is reported as
/// FS_ERROR_SERVICE with its number. Errors of the collected level go to the `ErrorSink` and the
/// call returns, so every caller needs a way on; all others are thrown as a `QXError`.
void FS_ConfigError(int code, const UnicodeString& a, const UnicodeString& b,
                    const UnicodeString& c, const UnicodeString& d);

/// The record that `FS_ConfigError` reports.
QXError makeConfigError(int code, const UnicodeString& a, const UnicodeString& b,
                        const UnicodeString& c, const UnicodeString& d);

/// A record with a code and its complete text; the fields that nothing uses are empty and -1.
QXError makeError(int code, const UnicodeString& text);

}  // namespace QXFontService_NS
