#pragma once

#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::embed {

/// The OpenType checksum of a table that is given in pieces of any length.
class PieceChecksum {
 public:
  void add(QXCommonNS::bytes::ByteView piece);
  /// That of all pieces so far, the last word filled up with zero bytes.
  [[nodiscard]] std::uint32_t value() const { return sum_; }

 private:
  std::uint32_t sum_ = 0;
  unsigned phase_ = 0;  // bytes of the last word that are there, 0 to 3
};

}  // namespace QXFontService_NS::embed
