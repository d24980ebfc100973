#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <vector>

#include "font/cmap/range_index.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// A segment mapping table (OpenType `cmap` format 4), kept in file form.
struct CmapFormat4 {
  std::uint16_t platformID = 0;
  std::uint16_t encodingID = 0;
  std::uint32_t length = 0;
  std::uint32_t segCount = 0;
  std::vector<std::byte> bytes;  ///< the subtable from its byte 14 on: endCode comes first
  std::uint32_t charCount = 0;   ///< codes of the segments before the first that ends at 0xFFFF

  /// The glyph of `code` as computed, 0 included, or `kNoGlyph`.
  [[nodiscard]] std::uint16_t glyph(int code) const;

  /// The same by the search that defines the answer, whatever the order of the segments.
  [[nodiscard]] std::uint16_t glyphByHalving(int code) const;

  /// Whether a segment may map one of the 256 codes from `block` * 256 on.
  [[nodiscard]] bool mayMap(std::uint32_t block) const;

  /// Whether the first mapped code lies in the private range of symbol fonts, U+F000 to U+FFFF.
  [[nodiscard]] bool startsInPrivateRange() const;

  /// Makes the index that `glyph` searches by; to be called once, when the bytes stand.
  void makeIndex();

 private:
  [[nodiscard]] std::uint16_t word(std::uint64_t index) const;
  [[nodiscard]] int endCode(std::uint64_t segment) const { return word(segment); }
  [[nodiscard]] int startCode(std::uint64_t segment) const { return word(segCount + 1 + segment); }
  [[nodiscard]] std::uint16_t glyphInSegment(std::uint64_t segment, int code) const;

  RangeIndex index_;
};

/// Reads the subtable that begins at `offset` of `stream` into `out`, its platform and encoding
/// excepted. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readFormat4(std::istream& stream, std::int64_t offset, CmapFormat4& out);

}  // namespace QXFontService_NS::cmap
