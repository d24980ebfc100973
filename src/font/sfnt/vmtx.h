#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::sfnt {

using QXCommonNS::bytes::ByteView;

/// A long metric of OpenType `vmtx`, in font units.
struct VerticalMetric {
  static constexpr std::size_t kSize = 4;

  std::uint16_t advanceHeight = 0;
  std::int16_t topSideBearing = 0;

  static VerticalMetric decode(ByteView record);
};

/// The whole records in `table`.
std::vector<VerticalMetric> decodeVmtx(ByteView table);

}  // namespace QXFontService_NS::sfnt
