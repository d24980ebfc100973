#pragma once

#include <map>
#include <mutex>
#include <vector>

#include "qxcommon/name.h"

namespace QXCommonNS::text {

/// The interned names of the process. Any thread; the lock is a leaf: nothing is called under it.
///
/// Texts are kept in an ordered map: hashes of foreign names could be made to collide.
class NameTable {
 public:
  /// @param capacity texts beyond this number are not taken.
  explicit NameTable(std::size_t capacity);

  /// The number of a text, a new one at its first coming.
  /// @return the number; `QXNAME_EMPTY` for the empty text and for a new one when all is taken.
  [[nodiscard]] QXNameEnum intern(const UnicodeString& text);

  /// The text of a number, which stays in place; empty for a number that was not given.
  [[nodiscard]] const UnicodeString& textOf(QXNameEnum name);

 private:
  using Names = std::map<UnicodeString, QXNameEnum>;

  void fix(const char16_t* text, QXNameEnum name);
  [[nodiscard]] QXNameEnum add(const UnicodeString& text);

  std::size_t capacity_;
  std::mutex mutex_;
  Names names_;
  std::map<QXNameEnum, const UnicodeString*> fixed_;  // numbers below kFirstFreeName
  std::vector<const UnicodeString*> free_;            // from there on; null where one went lost
  UnicodeString empty_;
};

/// The table behind `QXName`. Made at the first need and never destroyed, so that static objects
/// may use it while they begin and end.
[[nodiscard]] NameTable& nameTable();

}  // namespace QXCommonNS::text
