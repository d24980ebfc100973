#pragma once

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// The number of an interned name. Equal texts have equal numbers for the life of the process.
///
/// A few numbers are fixed; all other names get numbers from 4096 up in order of arrival, so they
/// may differ from one run to the next.
enum QXNameEnum : int {
  QXNAME_EMPTY = 0,            ///< the empty text
  QXNAME_NUMBER_FORMAT = 250,  ///< asks `QXUtil::formatNumber` for digits; no text
  QXNAME_TRUE = 1517,          ///< "true"
  QXNAME_YES = 1628            ///< "yes"
};

/// A shared name: an XML or keyword name that is compared by its number.
class QX_EXPORT QXName {
 public:
  /// The empty name.
  QXName() = default;

  /// Interns `text`. Any thread; the table is never emptied, so do not intern unbounded texts
  /// from files. A full table gives the empty name.
  QXName(const UnicodeString& text);

  /// The name of a known number.
  QXName(QXNameEnum value) : value_(value) {}

  [[nodiscard]] QXNameEnum getNameEnum() const { return value_; }  ///< Its number.

  bool operator==(const QXName& other) const { return value_ == other.value_; }  ///< By number.
  bool operator!=(const QXName& other) const { return value_ != other.value_; }
  /// An order for containers: by number, which is not that of the texts.
  bool operator<(const QXName& other) const { return value_ < other.value_; }

 private:
  QXNameEnum value_ = QXNAME_EMPTY;
};

/// The process-wide table of interned names. It has a lock of its own: any thread may use it.
class QX_EXPORT QXNameTable {
 public:
  /// The text of an interned name.
  /// @return the text, which stays where it is for the life of the process; empty for a number
  ///         that no name has.
  static const UnicodeString& getSharedNameString(QXNameEnum value);
};

}  // namespace QXCommonNS
