#pragma once

#include <vector>

#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Replaces a glyph by one a constant distance away (OpenType `GSUB` 1, format 1).
class FS_LayoutTables::GSUB_SingleSubstFormat1 final : public TTI_SubTable {
 public:
  GSUB_SingleSubstFormat1(layout::GraphReader& reader, std::uint64_t at);
  unsigned short substGlyph(unsigned short glyph) const override;
  int lookupType() const override { return 1; }

 private:
  unsigned short delta_;
};

/// Replaces each covered glyph by one of its own (OpenType `GSUB` 1, format 2).
class FS_LayoutTables::GSUB_SingleSubstFormat2 final : public TTI_SubTable {
 public:
  GSUB_SingleSubstFormat2(layout::GraphReader& reader, std::uint64_t at);
  unsigned short substGlyph(unsigned short glyph) const override;
  int lookupType() const override { return 1; }

 private:
  std::vector<unsigned short> substitutes_;
};

}  // namespace QXFontService_NS
