#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::names {

using QXCommonNS::bytes::ByteView;

/// A record of OpenType `name`.
struct NameRecord {
  static constexpr std::size_t kSize = 12;
  static constexpr std::uint16_t kMacintosh = 1;
  static constexpr std::uint16_t kWindows = 3;

  std::uint16_t platformID = 0, encodingID = 0, languageID = 0, nameID = 0;
  std::uint16_t length = 0;  // bytes
  std::uint16_t offset = 0;  // from the start of the string area

  static NameRecord decode(ByteView record) {
    return {record.u16(0), record.u16(2), record.u16(4),
            record.u16(6), record.u16(8), record.u16(10)};
  }
};

}  // namespace QXFontService_NS::names
