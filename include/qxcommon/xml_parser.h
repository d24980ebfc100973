#pragma once

#include "qxcommon/export.h"
#include "qxcommon/name.h"
#include "qxcommon/rc_object.h"
#include "qxcommon/text.h"
#include "qxcommon/uri.h"

namespace QXCommonNS {

/// A pull parser over one XML document.
///
/// End tags are told as they are written: one that does not match closes the innermost element
/// all the same, and judging it is the caller's business. Any other fault of the document ends
/// it; what was told before stays. No document type is read and nothing outside the file is
/// opened. A parser serves one thread.
class QX_EXPORT QXXmlParser : public QXRCObject {
 public:
  static constexpr int kStartOfDocument = 0;  ///< before the first event
  static constexpr int kEndOfDocument = 1;    ///< the end, from then on
  static constexpr int kStartTag = 2;         ///< of an element; an empty one has both tags
  static constexpr int kEndTag = 3;           ///< as it is written

  /// Sets `*out` to the name of the current tag, `QXNAME_EMPTY` outside of one; gives `out`.
  virtual QXNameEnum* getName(QXNameEnum* out) = 0;
  /// Sets `*out` to the value of the attribute `name` of the current start tag, the empty text
  /// when it is absent; gives `out`. `scratch` is not looked at and may be null.
  virtual UnicodeString* getAttribute(UnicodeString* out, QXName* scratch, QXName name) = 0;
  /// What the parser stands on: 2 a start tag, 3 an end tag, 1 the end, 0 before the first event.
  virtual int getEventType() = 0;
  /// Moves to the next event and gives its type; 1 at the end of the document, from then on.
  virtual int next() = 0;
  /// Starts reading the resource `uri`. False, with an empty document, when it cannot be opened.
  /// The two texts are reserved.
  virtual bool open(const QXUri& uri, const UnicodeString& reserved1,
                    const UnicodeString& reserved2) = 0;
};

}  // namespace QXCommonNS
