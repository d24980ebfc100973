#pragma once

#include <span>

#include "layout/gsub/glyph_sets.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Replaces a glyph by several (OpenType `GSUB` 2, format 1).
class FS_LayoutTables::GSUB_MultipleSubstFormat1 final : public TTI_SubTable {
 public:
  GSUB_MultipleSubstFormat1(layout::GraphReader& reader, std::uint64_t at);
  int lookupType() const override { return 2; }

  /// Whether the subtable covers `glyph`, and with which glyphs, possibly none.
  bool sequenceOf(unsigned short glyph, std::span<const unsigned short>& sequence) const;

 private:
  layout::GlyphSets sequences_;
};

}  // namespace QXFontService_NS
