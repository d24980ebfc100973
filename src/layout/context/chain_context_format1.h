#pragma once

#include "layout/context/context_rules.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Chained context rules over glyph ids (OpenType Chained Sequence Context, format 1).
class FS_LayoutTables::TTI_ChainContextFormat1 : public TTI_SubTable {
 public:
  TTI_ChainContextFormat1(layout::GraphReader& reader, std::uint64_t at);
  int matchContext(const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
                   const layout::GlyphSequence& glyphs, int position, unsigned int flag,
                   std::vector<int>& skipped) const override;
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;

 private:
  layout::ContextRules rules_;
};

}  // namespace QXFontService_NS
