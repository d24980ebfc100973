#include "layout/context/chain_context_format2.h"

#include "layout/context/chain_rule_matcher.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::TTI_ChainContextFormat2::TTI_ChainContextFormat2(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      backtrackClasses_(layout::sharedClassDef(reader, at, reader.u16(at + 4))),
      inputClasses_(layout::sharedClassDef(reader, at, reader.u16(at + 6))),
      lookaheadClasses_(layout::sharedClassDef(reader, at, reader.u16(at + 8))) {
  rules_.readChainSets(reader, at, at + 12, reader.u16(at + 10));
}

int FS_LayoutTables::TTI_ChainContextFormat2::matchContext(
    const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
    const layout::GlyphSequence& glyphs, int position, unsigned int flag,
    std::vector<int>& skipped) const {
  const unsigned short glyph = glyphs[position].glyphID;
  if (coverageIndexOf(glyph) < 0) return 0;
  const int set = inputClasses_ ? inputClasses_->classOf(glyph) : glyph;
  if (set < 0) return 0;
  const layout::ChainClasses classes{backtrackClasses_.get(), inputClasses_.get(),
                                     lookaheadClasses_.get()};
  layout::ChainRuleMatcher matcher(font, classes, glyphs, position, flag, skipped);
  return matcher.match(rules_, set, records);
}

}  // namespace QXFontService_NS
