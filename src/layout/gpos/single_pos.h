#pragma once

#include "layout/gpos/value_record.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Moves all its glyphs alike (OpenType `GPOS` 1, format 1).
class FS_LayoutTables::GPOS_SinglePosFormat1 final : public TTI_SubTable {
 public:
  GPOS_SinglePosFormat1(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 1; }

 private:
  layout::ValueFormat format_;
  layout::GPOS_ValueRecord value_;
};

/// Moves each of its glyphs by a value of its own (OpenType `GPOS` 1, format 2).
class FS_LayoutTables::GPOS_SinglePosFormat2 final : public TTI_SubTable {
 public:
  GPOS_SinglePosFormat2(layout::GraphReader& reader, std::uint64_t at);
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;
  int lookupType() const override { return 1; }

 private:
  layout::ValueFormat format_;
  std::size_t count_ = 0;
  layout::KeptBytes values_;  ///< none where the format moves nothing
};

}  // namespace QXFontService_NS
