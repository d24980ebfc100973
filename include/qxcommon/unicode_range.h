#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxcommon/value.h"

namespace QXCommonNS {

/// A set of code points, written as the `unicode-range` descriptor of CSS Fonts.
///
/// Reading is safe on any thread once the set is filled.
class QX_EXPORT QXUnicodeRange {
 public:
  /// The empty set.
  QXUnicodeRange();
  ~QXUnicodeRange();

  /// Whether the set holds a code point; false for numbers that are none.
  [[nodiscard]] bool inRange(int codePoint) const;

  /// Fills the set from a list such as "U+26, U+0-7F U+4??".
  ///
  /// Items are split by commas, blanks or both. Each is "U+" and up to six hexadecimal digits, of
  /// which the last may be question marks, or two numbers with "-" between, the first not above
  /// the second. Letters may be of either case; nothing reaches beyond U+10FFFF.
  /// @param value a text or name.
  /// @return true when the value was a valid list, which then is the whole set; false for a bad
  ///         item or none at all, and the set stays as it was.
  [[nodiscard]] bool parseUnicodeRange(const QXValue& value);

 private:
  struct Range {
    int first;
    int last;
  };
  std::vector<Range> ranges_;  // sorted, apart from each other
};

}  // namespace QXCommonNS
