#pragma once

#include <vector>

#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// One context rule over coverages (OpenType Sequence Context, format 3).
class FS_LayoutTables::TTI_ContextFormat3 : public TTI_SubTable {
 public:
  TTI_ContextFormat3(layout::GraphReader& reader, std::uint64_t at);
  int matchContext(const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
                   const layout::GlyphSequence& glyphs, int position, unsigned int flag,
                   std::vector<int>& skipped) const override;
  bool position(const FS_LayoutTables& font, const TTI_LookupList& lookupList,
                const TTI_Lookup& lookup, layout::PositionRun& glyphs, int& position,
                bool rightToLeft) const override;

 private:
  std::vector<layout::CoveragePtr> input_;
  std::vector<TTI_SubstLookupRecord> records_;
};

}  // namespace QXFontService_NS
