#pragma once

#include <vector>

#include "layout/gpos/mark_array.h"
#include "layout/gpos/position_run.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Attaches marks to components of ligatures (OpenType `GPOS` 5, format 1).
///
/// Unless the host says which component (bit 0x4000), it is the first one, and y changes its sign
/// with the direction. Kept: hosts without that bit place the marks of later components
/// themselves.
class FS_LayoutTables::GPOS_MarkLigPosFormat1 final : public TTI_SubTable {
 public:
  GPOS_MarkLigPosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 5; }

 private:
  /// Rows of `anchors_`.
  struct Ligature {
    std::size_t firstComponent = 0;
    std::size_t componentCount = 0;
  };

  void readLigatures(layout::GraphReader& reader, std::uint64_t ligatureArray);
  [[nodiscard]] Ligature ligatureOf(unsigned short glyph) const;

  layout::CoveragePtr ligatureCoverage_;
  layout::MarkArray marks_;
  std::vector<Ligature> ligatures_;
  layout::AnchorRows anchors_;
};

}  // namespace QXFontService_NS
