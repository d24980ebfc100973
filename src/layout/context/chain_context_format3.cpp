#include "layout/context/chain_context_format3.h"

#include "layout/context/context_rules.h"
#include "layout/context/coverage_match.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

int countOf(const std::vector<layout::CoveragePtr>& coverages) {
  return static_cast<int>(coverages.size());
}

layout::CoveragePtr firstInput(layout::GraphReader& reader, std::uint64_t at) {
  const std::uint64_t inputCount = at + 4 + 2 * std::uint64_t{reader.u16(at + 2)};
  return layout::readCoverage(reader, at, reader.u16(inputCount + 2));
}

}  // namespace

FS_LayoutTables::TTI_ChainContextFormat3::TTI_ChainContextFormat3(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(firstInput(reader, at)) {
  std::uint64_t from = at + 2;
  backtrack_ = layout::readCountedCoverages(reader, at, from);
  input_ = layout::readCountedCoverages(reader, at, from);
  lookahead_ = layout::readCountedCoverages(reader, at, from);
  layout::readLookupRecords(reader, from + 2, reader.u16(from), records_);
  if (input_.empty()) startAnywhere();
}

int FS_LayoutTables::TTI_ChainContextFormat3::matchContext(
    const FS_LayoutTables& font, std::span<const TTI_SubstLookupRecord>& records,
    const layout::GlyphSequence& glyphs, int position, unsigned int flag, std::vector<int>&) const {
  if (countOf(backtrack_) > position) return 0;
  if (position + countOf(input_) + countOf(lookahead_) > glyphs.size()) return 0;
  const int skipped = layout::inputMatch(font, flag, glyphs, position, input_);
  if (skipped < 0) return 0;
  const int last = position + countOf(input_) - 1 + skipped;
  if (!layout::backtrackMatch(font, flag, glyphs, position, backtrack_) ||
      !layout::lookaheadMatch(font, flag, glyphs, last, lookahead_))
    return 0;
  records = records_;
  return records.empty() ? -1 : static_cast<int>(records.size());
}

}  // namespace QXFontService_NS
