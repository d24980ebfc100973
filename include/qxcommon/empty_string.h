#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// The home of the shared empty text.
class QX_EXPORT QXEmptyString {
 public:
  /// The empty text, for results that are references. It is an ordinary static object: do not
  /// use it from the initialisers of other static objects.
  static const UnicodeString EMPTY_VALUE;
};

}  // namespace QXCommonNS
