#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// The fields of OpenType `post` that are used. Bytes outside the view read as 0.
struct Post {
  static constexpr std::size_t kSize = 32;

  /// The 16.16 number as it stands, not divided by 65536: -12 degrees is -786432. Kept: the style
  /// only asks whether it is 0, and hosts know the number in this form.
  float italicAngle = 0;
  std::int16_t underlinePosition = 0, underlineThickness = 0;  // font units
  bool isFixedPitch = false;

  static Post decode(ByteView table);
};

}  // namespace QXFontService_NS::sfnt
