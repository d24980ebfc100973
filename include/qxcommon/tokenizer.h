#pragma once

#include <cstdint>

#include "qxcommon/export.h"
#include "qxcommon/text.h"
#include "qxcommon/value.h"

namespace QXCommonNS {

/// Takes a text apart from left to right. One thread.
class QX_EXPORT QXTokenizer {
 public:
  /// The grammars.
  enum TokenizerType : int {
    TOKENIZER_DEFAULT = 0  ///< the only grammar
  };

  /// @param text the text, of which a copy is kept.
  QXTokenizer(const UnicodeString& text, TokenizerType type);
  ~QXTokenizer();

  /// The text up to the next separator, blanks included; the separator is passed over.
  /// @return the piece; empty at the end of the text, and between two separators.
  UnicodeString nextSeparatedValue(char16_t separator);
  UnicodeString nextSeparatedValue(wchar_t separator);  ///< The same.

  /// The next token as a value; blanks before it are passed over.
  ///
  /// A number is a sign, digits with at most one point, and an exponent ("1E-5", ".039625"), or
  /// "0x" and hexadecimal digits. Without point and exponent it is an integer when it fits 32 bits;
  /// otherwise it is a real, clamped to the range of a double. A blank or the end must follow it.
  /// A letter of ASCII or "_", and the letters, digits, "-" and "_" behind it, are a name. What
  /// stands between two quotation marks or two apostrophes is a text, in which the doubled mark
  /// stands for one. Anything else up to the next blank is a text as it stands.
  /// @return the token; the null value at the end.
  ///
  /// Names are interned for the life of the process: do not feed it words from fonts.
  QXValue nextTokenValueExp();

 private:
  UnicodeString text_;
  std::int32_t position_ = 0;
};

}  // namespace QXCommonNS
