#include "layout/context/context_format1.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

using layout::GlyphSequence;

/// Whether the glyphs behind `position` are these, with none passed over.
bool follows(const GlyphSequence& glyphs, int position, std::span<const unsigned short> input) {
  const int count = static_cast<int>(input.size());
  if (count >= glyphs.size() - position) return false;
  for (int i = 0; i < count; ++i)
    if (glyphs[position + 1 + i].glyphID != input[static_cast<std::size_t>(i)]) return false;
  return true;
}

}  // namespace

FS_LayoutTables::TTI_ContextFormat1::TTI_ContextFormat1(layout::GraphReader& reader,
                                                        std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  rules_.readSets(reader, at, at + 6, reader.u16(at + 4));
}

int FS_LayoutTables::TTI_ContextFormat1::matchContext(
    const FS_LayoutTables&, std::span<const TTI_SubstLookupRecord>& records,
    const GlyphSequence& glyphs, int position, unsigned int, std::vector<int>&) const {
  if (position + 1 >= glyphs.size()) return 0;
  const int set = coverageIndexOf(glyphs[position].glyphID);
  for (const layout::ContextRule& rule : rules_.rulesOf(set)) {
    if (!glyphs.spend(1 + static_cast<int>(rule.input.count))) return 0;
    if (!follows(glyphs, position, rules_.values(rule.input))) continue;
    records = rules_.records(rule);
    break;
  }
  return 0;  // Required, though a rule may fit: see the class.
}

}  // namespace QXFontService_NS
