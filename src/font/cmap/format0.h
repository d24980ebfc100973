#pragma once

#include <array>
#include <cstdint>
#include <istream>

#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// A byte encoding table (OpenType `cmap` format 0): one glyph for each of 256 codes.
struct CmapFormat0 {
  std::uint16_t platformID = 0;
  std::uint16_t encodingID = 0;
  std::array<std::uint8_t, 256> glyphIdArray{};
  std::uint32_t charCount = 0;  ///< 1 more than the codes that have a glyph

  /// The glyph of `code`, or `kNoGlyph`: glyph 0 is none here, whatever the font's settings.
  [[nodiscard]] std::uint16_t glyph(int code) const;
};

/// Reads the subtable that begins at `offset` of `stream` into `out`, its platform and encoding
/// excepted. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readFormat0(std::istream& stream, std::int64_t offset, CmapFormat0& out);

}  // namespace QXFontService_NS::cmap
