#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// The fields of OpenType `hhea` that are used, in font units. Bytes outside the view read as 0.
struct Hhea {
  static constexpr std::size_t kSize = 36;

  std::int16_t ascender = 0, descender = 0, lineGap = 0;
  std::uint32_t numberOfHMetrics = 0;

  static Hhea decode(ByteView table);
};

}  // namespace QXFontService_NS::sfnt
