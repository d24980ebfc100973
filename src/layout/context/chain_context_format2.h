#pragma once

#include "layout/context/context_rules.h"
#include "layout/table/class_def.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Chained context rules over classes (OpenType Chained Sequence Context, format 2). A class table
/// that is not there compares glyph ids.
class FS_LayoutTables::TTI_ChainContextFormat2 : public TTI_SubTable {
 public:
  TTI_ChainContextFormat2(layout::GraphReader& reader, std::uint64_t at);
  int matchContext(const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
                   const layout::GlyphSequence& glyphs, int position, unsigned int flag,
                   std::vector<int>& skipped) const override;
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;

 private:
  layout::ClassDefPtr backtrackClasses_;
  layout::ClassDefPtr inputClasses_;
  layout::ClassDefPtr lookaheadClasses_;
  layout::ContextRules rules_;
};

}  // namespace QXFontService_NS
