#pragma once

#include "layout/context/context_rules.h"
#include "layout/table/class_def.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Context rules over classes (OpenType Sequence Context, format 2).
class FS_LayoutTables::TTI_ContextFormat2 : public TTI_SubTable {
 public:
  TTI_ContextFormat2(layout::GraphReader& reader, std::uint64_t at);
  int matchContext(const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
                   const layout::GlyphSequence& glyphs, int position, unsigned int flag,
                   std::vector<int>& skipped) const override;
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;

 private:
  layout::ClassDefPtr classDef_;
  layout::ContextRules rules_;
};

}  // namespace QXFontService_NS
