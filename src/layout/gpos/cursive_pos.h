#pragma once

#include <vector>

#include "layout/gpos/anchor.h"
#include "layout/gpos/position_run.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Joins glyphs: the exit of one meets the entry of the next (OpenType `GPOS` 3, format 1).
///
/// The glyph that moves is the first of the two, whichever the direction of the text. Kept: hosts
/// add the moves up from that end.
class FS_LayoutTables::GPOS_CursivePosFormat1 final : public TTI_SubTable {
 public:
  GPOS_CursivePosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 3; }

 private:
  struct Joints {
    GPOS_Anchor entry;
    GPOS_Anchor exit;
  };

  [[nodiscard]] Joints jointsOf(unsigned short glyph) const;

  std::vector<Joints> joints_;
};

}  // namespace QXFontService_NS
