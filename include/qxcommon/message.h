#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// A message made from a template.
///
///     UnicodeString text = QXMessage(u"<{0}> in {1}", u"alias", path, u"", u"", u"");
///
/// The placeholders {0} to {4} are replaced in one pass from left to right. What was filled in is
/// not searched again, since paths may hold braces; every other brace and every apostrophe
/// stands for itself.
class QX_EXPORT QXMessage {
 public:
  /// @param pattern the template.
  /// @param a0, a1, a2, a3, a4 what replaces {0} to {4}; a placeholder may occur more than once.
  QXMessage(const UnicodeString& pattern, const UnicodeString& a0, const UnicodeString& a1,
            const UnicodeString& a2, const UnicodeString& a3, const UnicodeString& a4);
  ~QXMessage();

  /// The finished text.
  operator UnicodeString() const;

 private:
  UnicodeString text_;
};

}  // namespace QXCommonNS
