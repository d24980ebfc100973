#include "layout/context/chain_context_format1.h"

#include "layout/context/chain_rule_matcher.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::TTI_ChainContextFormat1::TTI_ChainContextFormat1(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  rules_.readChainSets(reader, at, at + 6, reader.u16(at + 4));
}

int FS_LayoutTables::TTI_ChainContextFormat1::matchContext(
    const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
    const layout::GlyphSequence& glyphs, int position, unsigned int flag,
    std::vector<int>& skipped) const {
  const int set = coverageIndexOf(glyphs[position].glyphID);
  if (set < 0) return 0;
  layout::ChainRuleMatcher matcher(font, {}, glyphs, position, flag, skipped);
  return matcher.match(rules_, set, records);
}

}  // namespace QXFontService_NS
