#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// The fields of OpenType `head` that are used, in font units. Bytes outside the view read as 0.
struct Head {
  static constexpr std::size_t kSize = 54;

  std::uint16_t unitsPerEm = 0;
  std::int16_t xMin = 0, yMin = 0, xMax = 0, yMax = 0;
  std::uint16_t macStyle = 0;  // bit 0 bold, bit 1 italic
  std::uint32_t indexToLocFormat = 0;

  static Head decode(ByteView table);
};

}  // namespace QXFontService_NS::sfnt
