#include "layout/context/context_format3.h"

#include "layout/context/context_rules.h"
#include "layout/context/coverage_match.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::TTI_ContextFormat3::TTI_ContextFormat3(layout::GraphReader& reader,
                                                        std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 6))) {
  const unsigned glyphCount = reader.u16(at + 2);
  input_ = layout::readCoverages(reader, at, at + 6, glyphCount);
  layout::readLookupRecords(reader, at + 6 + 2 * std::uint64_t{glyphCount}, reader.u16(at + 4),
                            records_);
  if (input_.empty()) startAnywhere();
}

int FS_LayoutTables::TTI_ContextFormat3::matchContext(
    const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
    const layout::GlyphSequence& glyphs, int position, unsigned int flag, std::vector<int>&) const {
  if (position + 1 >= glyphs.size()) return 0;
  if (layout::inputMatch(font, flag, glyphs, position, input_) < 0) return 0;
  records = records_;
  return records.empty() ? -1 : static_cast<int>(records.size());
}

}  // namespace QXFontService_NS
