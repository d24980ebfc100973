#pragma once

#include "layout/context/context_rules.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Context rules over glyph ids (OpenType Sequence Context, format 1).
///
/// A rule that fits gives its records and still answers 0, no match, so these lookups never change
/// anything. Kept: existing documents were set that way.
class FS_LayoutTables::TTI_ContextFormat1 : public TTI_SubTable {
 public:
  TTI_ContextFormat1(layout::GraphReader& reader, std::uint64_t at);
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
