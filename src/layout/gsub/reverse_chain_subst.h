#pragma once

#include <vector>

#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Replaces a glyph in its context, in runs from the end of the text.
class FS_LayoutTables::TTI_ReverseChainingContextSingleFormat1 : public TTI_SubTable {
 public:
  TTI_ReverseChainingContextSingleFormat1(layout::GraphReader& reader, std::uint64_t at);
  unsigned short reverseGlyph(const FS_LayoutTables& font, const layout::GlyphSequence& glyphs,
                              int position, unsigned int flag) const override;

 private:
  std::vector<layout::CoveragePtr> backtrack_;  ///< nearest glyph first
  std::vector<layout::CoveragePtr> lookahead_;
  std::vector<unsigned short> substitutes_;
};

/// The same as OpenType `GSUB` 8, format 1.
class FS_LayoutTables::GSUB_ReverseChainingContextSingleFormat1 final
    : public TTI_ReverseChainingContextSingleFormat1 {
 public:
  using TTI_ReverseChainingContextSingleFormat1::TTI_ReverseChainingContextSingleFormat1;
  int lookupType() const override { return 8; }
};

}  // namespace QXFontService_NS
