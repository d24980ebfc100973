#pragma once

#include "layout/gpos/mark_array.h"
#include "layout/gpos/position_run.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Attaches marks to marks before them (OpenType `GPOS` 6, format 1).
class FS_LayoutTables::GPOS_MarkMarkPosFormat1 final : public TTI_SubTable {
 public:
  GPOS_MarkMarkPosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 6; }

 private:
  layout::CoveragePtr secondCoverage_;
  layout::MarkArray marks_;
  layout::AnchorRows seconds_;
};

}  // namespace QXFontService_NS
