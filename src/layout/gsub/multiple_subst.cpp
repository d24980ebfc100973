#include "layout/gsub/multiple_subst.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GSUB_MultipleSubstFormat1::GSUB_MultipleSubstFormat1(layout::GraphReader& reader,
                                                                      std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  sequences_.read(reader, at, at + 6, reader.u16(at + 4));
}

bool FS_LayoutTables::GSUB_MultipleSubstFormat1::sequenceOf(
    unsigned short glyph, std::span<const unsigned short>& sequence) const {
  const int index = coverageIndexOf(glyph);
  if (!sequences_.has(index)) return false;
  sequence = sequences_.at(index);
  return true;
}

}  // namespace QXFontService_NS
