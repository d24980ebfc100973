#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <vector>

#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// A high-byte mapping table (OpenType `cmap` format 2): codes of one or two bytes, as the legacy
/// East Asian encodings have them.
struct CmapFormat2 {
  struct SubHeader {
    std::uint16_t firstCode = 0;
    std::uint16_t entryCount = 0;
    std::int16_t idDelta = 0;
    /// Index of the first code's word in `glyphIndexArray`, one too high; 0 where there is none.
    std::int32_t glyphIndex = 0;
  };

  std::uint16_t platformID = 0;
  std::uint16_t encodingID = 0;
  std::uint32_t length = 0;
  std::map<std::uint8_t, SubHeader> subHeaders;  ///< by high byte; 0 serves single-byte codes
  std::vector<std::uint16_t> glyphIndexArray;
  std::uint32_t charCount = 0;  ///< the entries of all high bytes, shared sub-headers counted again

  /// The glyph of `code` (at most two bytes, the high one the lead), or `kNoGlyph`: glyph 0 is none
  /// here, whatever the font's settings.
  [[nodiscard]] std::uint16_t glyph(int code) const;
};

/// Reads the subtable that begins at `offset` of `stream` into `out`, its platform and encoding
/// excepted. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readFormat2(std::istream& stream, std::int64_t offset, CmapFormat2& out);

}  // namespace QXFontService_NS::cmap
