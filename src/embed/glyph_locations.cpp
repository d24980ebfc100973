#include "embed/glyph_locations.h"

#include "embed/table_tags.h"

namespace QXFontService_NS::embed {

GlyphLocations::GlyphLocations(const SubsetSource& source)
    : loca_(source.image->loca()),
      entrySize_(source.indexToLocFormat == 1 ? 4 : 2),
      glyphCount_(source.glyphCount) {
  const auto* glyf = source.image->find(kGlyfTag);
  if (glyf == nullptr) return;
  glyfOffset_ = glyf->offset();
  glyfLength_ = glyf->length();
}

std::uint32_t GlyphLocations::offset(std::uint32_t glyph) const {
  const std::uint64_t at = std::uint64_t{glyph} * entrySize_;
  if (!loca_.contains(at, entrySize_)) return glyfLength_;
  return areLong() ? loca_.u32(at) : std::uint32_t{2} * loca_.u16(at);
}

GlyphLocations::Extent GlyphLocations::extent(std::uint32_t glyph) const {
  // Padding behind the last glyph is no glyph.
  if (glyphCount_ > 0 && glyph >= glyphCount_) return {};
  const std::uint32_t start = offset(glyph);
  const std::uint32_t end = offset(glyph + 1);
  if (end == 0 || start > end) return {start, 0};
  return {start, end - start};
}

}  // namespace QXFontService_NS::embed
