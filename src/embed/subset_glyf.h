#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/bytes/byte_view.h"
#include "embed/glyph_closure.h"
#include "embed/glyph_locations.h"
#include "embed/glyph_reader.h"
#include "embed/subset_source.h"

namespace QXFontService_NS::embed {

/// The glyphs of a subset as they stand in the source: what `glyf` and `loca` are rebuilt from.
class SubsetGlyphs {
 public:
  /// The tables of `source` must have been selected, so that its `loca` has been read.
  explicit SubsetGlyphs(const SubsetSource& source)
      : locations_(source), reader_(*source.stream, locations_), closure_(reader_) {}
  SubsetGlyphs(const SubsetGlyphs&) = delete;
  SubsetGlyphs& operator=(const SubsetGlyphs&) = delete;

  /// Takes `.notdef`, `gids` and all components; see `GlyphClosure::fill`.
  [[nodiscard]] bool fill(const std::vector<std::uint16_t>& gids) { return closure_.fill(gids); }

  [[nodiscard]] const GlyphLocations& locations() const { return locations_; }
  /// By rising id.
  [[nodiscard]] const std::vector<KeptGlyph>& glyphs() const { return closure_.glyphs(); }

 private:
  GlyphLocations locations_;
  GlyphReader reader_;
  GlyphClosure closure_;
};

/// The new `glyf`: the bytes of the glyphs back to back, with no padding. Views of `glyphs`.
[[nodiscard]] std::vector<QXCommonNS::bytes::ByteView> subsetGlyf(const SubsetGlyphs& glyphs);

/// The new `loca`, of the size and format of the source; glyphs outside the subset are empty.
///
/// Kept, for documents already written: the short form stores half of an offset though a glyph
/// may have an odd length, and offsets past 131,070 lose their upper bits.
[[nodiscard]] std::vector<std::byte> subsetLoca(const SubsetGlyphs& glyphs);

}  // namespace QXFontService_NS::embed
