#pragma once

#include <iosfwd>

#include "qxcommon/export.h"
#include "qxcommon/lang.h"
#include "qxcommon/name.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// Numbers and compression. No operation looks at the C locale of the process: a host with a
/// decimal comma reads the same metrics. Any thread.
class QX_EXPORT QXUtil {
 public:
  /// How `QXValue::toQuotedString` writes a text.
  enum QuoteMode : int {
    QUOTE_DOUBLE = 7  ///< between U+0022 signs, inner ones doubled
  };

  /// Reads a decimal number: a sign, digits, at most one point, digits. There is no exponent, and
  /// blanks are not passed over.
  /// @param text a zero-ended text.
  /// @param end set to the first character behind the number, to `text` when there is none; may
  ///            be null.
  /// @param reserved1, reserved2 null.
  /// @return the number; 0 when there is none. Numbers beyond a `double` are clamped.
  static double parseNumber(const wchar_t* text, const wchar_t** end, bool* reserved1,
                            bool* reserved2);
  /// The same for UTF-16.
  static double parseNumber(const char16_t* text, const char16_t** end, bool* reserved1,
                            bool* reserved2);

  /// The decimal digits of a number, with "-" before a negative one.
  /// @param value the number.
  /// @param format "1", plain digits; nothing else is known, and other formats give the same.
  /// @param text, width, lang, name the service passes an empty text, 0, a default language and
  ///        250; they change nothing.
  static UnicodeString formatNumber(long long value, const UnicodeString& format,
                                    const UnicodeString& text, int width, QXLang lang,
                                    QXNameEnum name);

  /// Decompresses zlib data (RFC 1950) into a stream.
  /// @param out gets the bytes; after a failure it holds what came out so far.
  /// @param data, size the compressed bytes; bytes behind the end of the zlib data are ignored.
  /// @return false when the data is damaged, incomplete or larger than is sane, or when `out`
  ///         fails.
  static bool inflate(std::ostream& out, const unsigned char* data, unsigned size);

  /// Compresses bytes in zlib format (RFC 1950) into a stream.
  /// @return false when `out` fails.
  static bool deflate(std::ostream& out, const unsigned char* data, unsigned size);
};

}  // namespace QXCommonNS
