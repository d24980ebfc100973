#pragma once

#include "layout/gpos/mark_array.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Attaches marks to bases (OpenType `GPOS` 4, format 1). The lookup's flag has no part in it: the
/// base is found by width and class.
class FS_LayoutTables::GPOS_MarkBasePosFormat1 final : public TTI_SubTable {
 public:
  GPOS_MarkBasePosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 4; }

 private:
  layout::CoveragePtr baseCoverage_;
  layout::MarkArray marks_;
  layout::AnchorRows bases_;
};

}  // namespace QXFontService_NS
