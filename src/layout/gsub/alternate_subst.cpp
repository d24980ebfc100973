#include "layout/gsub/alternate_subst.h"

#include "layout/gsub/substitutes.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GSUB_AlternateSubstFormat1::GSUB_AlternateSubstFormat1(layout::GraphReader& reader,
                                                                        std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  alternates_.read(reader, at, at + 6, reader.u16(at + 4));
}

unsigned short FS_LayoutTables::GSUB_AlternateSubstFormat1::alternateGlyph(unsigned short glyph,
                                                                           int number) const {
  if (number < 1) return layout::kNoGlyph;
  return layout::substituteAt(alternates_.at(coverageIndexOf(glyph)), number - 1);
}

}  // namespace QXFontService_NS
