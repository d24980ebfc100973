#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"
#include "qxcommon/tokenizer.h"
#include "qxcommon/value.h"

namespace QXCommonNS {

/// Turns a text into a value, such as an attribute of a configuration. Any thread.
class QX_EXPORT QXParser {
 public:
  /// Parses a text that holds one value; blanks around it do not matter.
  ///
  /// | Text | Value |
  /// |---|---|
  /// | empty or blank | null |
  /// | sign and digits that fit 32 bits, "0x" and hexadecimal digits | integer |
  /// | digits with a point, or too large | real |
  /// | letter of ASCII or "_", then letters, digits, "-", "_" | name |
  /// | quoted with U+0022 or U+0027 | text between the marks |
  /// | anything else, such as several tokens or an exponent | the text itself |
  ///
  /// @param text the text.
  /// @param type the grammar; there is one.
  static QXValue parse(const UnicodeString& text, QXTokenizer::TokenizerType type);
};

}  // namespace QXCommonNS
