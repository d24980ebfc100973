#pragma once

#include <vector>

#include "layout/context/context_rules.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// Replaces several glyphs by one (OpenType `GSUB` 4, format 1).
class FS_LayoutTables::GSUB_LigatureSubstFormat1 final : public TTI_SubTable {
 public:
  GSUB_LigatureSubstFormat1(layout::GraphReader& reader, std::uint64_t at);
  unsigned short ligatureGlyph(const FS_LayoutTables& font, const layout::GlyphSequence& glyphs,
                               int& position, unsigned int flag,
                               std::vector<int>& skipped) const override;
  int lookupType() const override { return 4; }

 private:
  struct Ligature {
    unsigned short glyph = 0;
    unsigned short componentCount = 0;  ///< the first glyph included; 0 matches alone like 1
    layout::Run components;             ///< from the second on
  };

  layout::Run readSet(layout::GraphReader& reader, std::uint64_t at);
  Ligature readLigature(layout::GraphReader& reader, std::uint64_t at);
  bool matches(const FS_LayoutTables& font, const layout::GlyphSequence& glyphs, int position,
               unsigned int flag, const Ligature& ligature, std::vector<int>& skipped) const;

  std::vector<layout::Run> sets_;
  std::vector<Ligature> ligatures_;
  std::vector<unsigned short> components_;
};

}  // namespace QXFontService_NS
