#include "layout/gsub/ligature_subst.h"

#include "layout/context/lookup_flag.h"
#include "layout/gsub/substitutes.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

using Ligatures = FS_LayoutTables::GSUB_LigatureSubstFormat1;

Ligatures::GSUB_LigatureSubstFormat1(layout::GraphReader& reader, std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  const std::size_t count = reader.countThatFits(at + 6, reader.u16(at + 4), 2);
  if (!reader.charge(count * sizeof(layout::Run))) return;
  sets_.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned offset = reader.u16(at + 6 + 2 * i);
    sets_.push_back(offset == 0 ? layout::Run{} : readSet(reader, at + offset));
  }
}

layout::Run Ligatures::readSet(layout::GraphReader& reader, std::uint64_t at) {
  const auto first = static_cast<std::uint32_t>(ligatures_.size());
  const std::size_t count = reader.countThatFits(at + 2, reader.u16(at), 2);
  for (std::size_t i = 0; i < count && reader.charge(sizeof(Ligature)); ++i)
    ligatures_.push_back(readLigature(reader, at + reader.u16(at + 2 + 2 * i)));
  return {first, static_cast<std::uint32_t>(ligatures_.size()) - first};
}

Ligatures::Ligature Ligatures::readLigature(layout::GraphReader& reader, std::uint64_t at) {
  Ligature ligature;
  ligature.glyph = reader.u16(at);
  ligature.componentCount = reader.u16(at + 2);
  if (ligature.componentCount < 2) return ligature;
  const auto first = static_cast<std::uint32_t>(components_.size());
  const std::size_t count = reader.countThatFits(at + 4, ligature.componentCount - 1U, 2);
  if (!reader.charge(count * 2)) return ligature;
  for (std::size_t i = 0; i < count; ++i) components_.push_back(reader.u16(at + 4 + 2 * i));
  ligature.components = {first, static_cast<std::uint32_t>(count)};
  ligature.componentCount = static_cast<unsigned short>(count + 1);
  return ligature;
}

unsigned short Ligatures::ligatureGlyph(const FS_LayoutTables& font,
                                        const layout::GlyphSequence& glyphs, int& position,
                                        unsigned int flag, std::vector<int>& skipped) const {
  // A ligature of glyph 0xFFFF moves the position and is no answer, so the next subtable may be
  // asked behind the end.
  if (position >= glyphs.size()) return layout::kNoGlyph;
  const int index = coverageIndexOf(glyphs[position].glyphID);
  if (index < 0 || static_cast<std::size_t>(index) >= sets_.size()) return layout::kNoGlyph;
  const int left = glyphs.size() - position;
  for (const Ligature& ligature : sets_[static_cast<std::size_t>(index)].of(ligatures_)) {
    if (!glyphs.spend(1)) break;
    if (ligature.componentCount > left) continue;
    if (!matches(font, glyphs, position, flag, ligature, skipped)) continue;
    position += static_cast<int>(skipped.size()) + ligature.componentCount;
    return ligature.glyph;
  }
  return layout::kNoGlyph;
}

bool Ligatures::matches(const FS_LayoutTables& font, const layout::GlyphSequence& glyphs,
                        int position, unsigned int flag, const Ligature& ligature,
                        std::vector<int>& skipped) const {
  skipped.clear();
  int next = position + 1;
  bool equal = true;
  for (const unsigned short component : ligature.components.of(components_)) {
    while (next < glyphs.size() && layout::isSkipped(font, flag, glyphs[next]))
      skipped.push_back(next++);
    equal = next < glyphs.size() && glyphs[next].glyphID == component;
    if (!equal) break;
    ++next;
  }
  return glyphs.spend(next - position) && equal;
}

}  // namespace QXFontService_NS
