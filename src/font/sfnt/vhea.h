#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// The fields of OpenType `vhea` that are used, in font units. Bytes outside the view read as 0.
/// `numOfLongVerMetrics` is kept by the font, since loading its tables may set it back to 0.
struct Vhea {
  static constexpr std::size_t kSize = 36;

  std::int16_t vertAscender = 0, vertDescender = 0, vertLineGap = 0;

  static Vhea decode(ByteView table);
  static std::uint16_t numOfLongVerMetrics(ByteView table) { return table.u16(34); }
};

}  // namespace QXFontService_NS::sfnt
