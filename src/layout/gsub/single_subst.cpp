#include "layout/gsub/single_subst.h"

#include "layout/gsub/substitutes.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GSUB_SingleSubstFormat1::GSUB_SingleSubstFormat1(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      delta_(reader.u16(at + 4)) {}

unsigned short FS_LayoutTables::GSUB_SingleSubstFormat1::substGlyph(unsigned short glyph) const {
  if (coverageIndexOf(glyph) < 0) return layout::kNoGlyph;
  return static_cast<unsigned short>(glyph + delta_);
}

FS_LayoutTables::GSUB_SingleSubstFormat2::GSUB_SingleSubstFormat2(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      substitutes_(reader.words(at + 6, reader.u16(at + 4))) {}

unsigned short FS_LayoutTables::GSUB_SingleSubstFormat2::substGlyph(unsigned short glyph) const {
  return layout::substituteAt(substitutes_, coverageIndexOf(glyph));
}

}  // namespace QXFontService_NS
