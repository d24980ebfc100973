#include "layout/gsub/glyph_sets.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS::layout {

void GlyphSets::read(GraphReader& reader, std::uint64_t base, std::uint64_t offsets,
                     unsigned count) {
  const std::size_t fitting = reader.countThatFits(offsets, count, 2);
  if (!reader.charge(fitting * sizeof(Run))) return;
  sets_.reserve(fitting);
  for (std::size_t i = 0; i < fitting; ++i) {
    const unsigned offset = reader.u16(offsets + 2 * i);
    sets_.push_back(offset == 0 ? Run{} : readSet(reader, base + offset));
  }
}

Run GlyphSets::readSet(GraphReader& reader, std::uint64_t at) {
  const std::size_t count = reader.countThatFits(at + 2, reader.u16(at), 2);
  const Run none{static_cast<std::uint32_t>(glyphs_.size()), 0};
  if (!reader.charge(count * 2)) return none;
  for (std::size_t i = 0; i < count; ++i) glyphs_.push_back(reader.u16(at + 2 + 2 * i));
  return {none.first, static_cast<std::uint32_t>(count)};
}

std::span<const unsigned short> GlyphSets::at(int index) const {
  return has(index) ? sets_[static_cast<std::size_t>(index)].of(glyphs_)
                    : std::span<const unsigned short>();
}

}  // namespace QXFontService_NS::layout
