#pragma once

#include <string>

#include "qxcommon/text.h"

namespace QXFontService_NS {

/// A text that also keeps its narrow form, to pass paths to narrow interfaces.
///
/// The narrow form is made once, by the constructor: a text that is changed afterwards does not
/// take it along.
class QXCStr : public icu::UnicodeString {
 public:
  QXCStr() = default;
  /// The narrow form is the text in UTF-8; a lone surrogate becomes U+FFFD.
  explicit QXCStr(const icu::UnicodeString& text) : icu::UnicodeString(text) {
    text.toUTF8String(narrow_);
  }
  /// @param text UTF-8, zero-ended; null is empty. The narrow form has the bytes as given, so a
  ///             path that is not well-formed UTF-8 still opens.
  explicit QXCStr(const char* text)
      : icu::UnicodeString(icu::UnicodeString::fromUTF8(text != nullptr ? text : "")),
        narrow_(text != nullptr ? text : "") {}

  /// The narrow text, zero-ended; valid as long as this object.
  [[nodiscard]] const char* c_str() const { return narrow_.c_str(); }

 private:
  std::string narrow_;
};

}  // namespace QXFontService_NS
