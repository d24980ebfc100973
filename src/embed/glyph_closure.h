#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

#include "embed/glyph_reader.h"

namespace QXFontService_NS::embed {

/// The glyphs of a subset: `.notdef`, those asked for, and all that their composites are made of
/// (OpenType `glyf`), each once, with their bytes.
class GlyphClosure {
 public:
  /// `reader` must outlive this; it holds the bytes.
  explicit GlyphClosure(GlyphReader& reader) : reader_(reader) {}

  /// Fills the closure. 0xFFFF, which is no glyph, is passed over; an id that the font does not
  /// have is in the closure with no bytes.
  /// @return false where the glyphs overlap beyond all reason; see `GlyphReader::read`.
  [[nodiscard]] bool fill(const std::vector<std::uint16_t>& gids);

  /// By rising id.
  [[nodiscard]] const std::vector<KeptGlyph>& glyphs() const { return glyphs_; }

 private:
  using Ids = std::vector<std::uint16_t>;

  void add(std::uint16_t gid, Ids& round);
  [[nodiscard]] bool readRound(Ids& round);
  [[nodiscard]] Ids components(std::size_t firstGlyph);
  void addComponents(const KeptGlyph& glyph, Ids& round);

  GlyphReader& reader_;
  std::bitset<0x10000> isIn_;
  std::vector<KeptGlyph> glyphs_;
};

}  // namespace QXFontService_NS::embed
