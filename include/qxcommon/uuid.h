#pragma once

#include <array>
#include <cstdint>

#include "qxcommon/export.h"
#include "qxcommon/text.h"

namespace QXCommonNS {

/// A universally unique identifier (RFC 4122, version 4: random).
class QX_EXPORT QXUUID {
 public:
  /// A new identifier. Any thread. The numbers are unique, not secret.
  QXUUID();

  /// The first 32 bits, all of them random.
  [[nodiscard]] unsigned int getFirstWord() const { return words_[0]; }

  /// The usual form: 32 lower-case hexadecimal digits in groups of 8, 4, 4, 4 and 12.
  [[nodiscard]] UnicodeString toString() const;

 private:
  std::array<std::uint32_t, 4> words_;
};

}  // namespace QXCommonNS
