#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <vector>

#include "font/cmap/range_index.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// A segmented coverage table (OpenType `cmap` format 12), kept in file form.
struct CmapFormat12 {
  std::uint16_t platformID = 0;
  std::uint16_t encodingID = 0;
  std::uint32_t length = 0;
  std::uint32_t numGroups = 0;
  std::vector<std::byte> groups;  ///< 12 bytes each: startCharCode, endCharCode, startGlyphID
  std::uint32_t charCount = 0;

  /// The glyph of `code` as computed, 0 included, or `kNoGlyph`.
  [[nodiscard]] std::uint16_t glyph(int code) const;

  /// The same by the search that defines the answer, whatever the order of the groups.
  [[nodiscard]] std::uint16_t glyphByHalving(int code) const;

  /// Whether a group may map one of the 256 codes from `block` * 256 on.
  [[nodiscard]] bool mayMap(std::uint32_t block) const;

  /// Whether the low 16 bits of the first mapped code lie in the private range of symbol fonts.
  [[nodiscard]] bool startsInPrivateRange() const;

  /// Makes the index that `glyph` searches by; to be called once, when the groups stand.
  void makeIndex();

 private:
  [[nodiscard]] std::uint32_t startCode(std::uint64_t group) const;
  [[nodiscard]] std::uint32_t endCode(std::uint64_t group) const;
  [[nodiscard]] std::uint16_t glyphInGroup(std::uint64_t group, std::uint32_t code) const;

  RangeIndex index_;
};

/// Reads the subtable that begins at `offset` of `stream` into `out`, its platform and encoding
/// excepted. A failure leaves `out` unfit for use.
[[nodiscard]] TableResult readFormat12(std::istream& stream, std::int64_t offset,
                                       CmapFormat12& out);

}  // namespace QXFontService_NS::cmap
