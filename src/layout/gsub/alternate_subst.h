#pragma once

#include "layout/gsub/glyph_sets.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Replaces a glyph by one of several alternates (OpenType `GSUB` 3, format 1).
class FS_LayoutTables::GSUB_AlternateSubstFormat1 final : public TTI_SubTable {
 public:
  GSUB_AlternateSubstFormat1(layout::GraphReader& reader, std::uint64_t at);
  unsigned short alternateGlyph(unsigned short glyph, int number) const override;
  int lookupType() const override { return 3; }

 private:
  layout::GlyphSets alternates_;
};

}  // namespace QXFontService_NS
