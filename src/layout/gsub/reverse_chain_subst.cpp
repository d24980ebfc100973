#include "layout/gsub/reverse_chain_subst.h"

#include "layout/context/coverage_match.h"
#include "layout/gsub/substitutes.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

using Reverse = FS_LayoutTables::TTI_ReverseChainingContextSingleFormat1;

Reverse::TTI_ReverseChainingContextSingleFormat1(layout::GraphReader& reader, std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  std::uint64_t from = at + 4;
  backtrack_ = layout::readCountedCoverages(reader, at, from);
  lookahead_ = layout::readCountedCoverages(reader, at, from);
  substitutes_ = reader.words(from + 2, reader.u16(from));
}

unsigned short Reverse::reverseGlyph(const FS_LayoutTables& font,
                                     const layout::GlyphSequence& glyphs, int position,
                                     unsigned int flag) const {
  if (static_cast<int>(backtrack_.size()) > position) return layout::kNoGlyph;
  if (static_cast<int>(lookahead_.size()) + position >= glyphs.size()) return layout::kNoGlyph;
  const int index = coverageIndexOf(glyphs[position].glyphID);
  if (index < 0) return layout::kNoGlyph;
  if (!layout::backtrackMatch(font, flag, glyphs, position, backtrack_) ||
      !layout::lookaheadMatch(font, flag, glyphs, position, lookahead_))
    return layout::kNoGlyph;
  return layout::substituteAt(substitutes_, index);
}

}  // namespace QXFontService_NS
