#pragma once

#include <cstddef>
#include <cstdint>

#include "common/bytes/byte_view.h"
#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

/// Where the glyphs of a font stand in its `glyf`, as its `loca` says (OpenType `loca`).
class GlyphLocations {
 public:
  struct Extent {
    std::uint32_t start = 0;  ///< from the start of `glyf`
    std::uint32_t length = 0;
  };

  /// Takes `loca` as the image of `source` holds it, which must outlive this.
  explicit GlyphLocations(const SubsetSource& source);

  /// The start of a glyph. Behind the last entry it is the length of `glyf`, so that the last glyph
  /// of a `loca` without closing entry ends there.
  [[nodiscard]] std::uint32_t offset(std::uint32_t glyph) const;
  /// The bytes of a glyph. The length is 0 where the offsets fall, where the end is 0, and for ids
  /// that the font does not have.
  [[nodiscard]] Extent extent(std::uint32_t glyph) const;

  [[nodiscard]] bool areLong() const { return entrySize_ == 4; }
  [[nodiscard]] std::size_t entrySize() const { return entrySize_; }
  /// Whole entries, the closing one included.
  [[nodiscard]] std::size_t entryCount() const { return loca_.size() / entrySize_; }
  /// The bytes of the table, those behind its last whole entry included.
  [[nodiscard]] std::size_t tableSize() const { return loca_.size(); }
  /// The stream position of `glyf`.
  [[nodiscard]] std::uint32_t glyfOffset() const { return glyfOffset_; }

 private:
  QXCommonNS::bytes::ByteView loca_;
  std::size_t entrySize_;
  std::uint32_t glyfOffset_ = 0;
  std::uint32_t glyfLength_ = 0;
  unsigned glyphCount_;
};

}  // namespace QXFontService_NS::embed
