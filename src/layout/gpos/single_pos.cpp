#include "layout/gpos/single_pos.h"

#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

FS_LayoutTables::GPOS_SinglePosFormat1::GPOS_SinglePosFormat1(layout::GraphReader& reader,
                                                              std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      format_(reader.u16(at + 4)),
      value_(layout::readValueRecord(reader.bytes(), at + 6, format_)) {}

bool FS_LayoutTables::GPOS_SinglePosFormat1::position(const FS_LayoutTables&, const TTI_LookupList&,
                                                      const TTI_Lookup&,
                                                      layout::PositionRun& glyphs, int& position,
                                                      bool) const {
  if (!format_.moves() || coverageIndexOf(glyphs[position].getGlyphID()) < 0) return false;
  layout::applyValue(glyphs, position, format_, value_);
  return true;
}

FS_LayoutTables::GPOS_SinglePosFormat2::GPOS_SinglePosFormat2(layout::GraphReader& reader,
                                                              std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      format_(reader.u16(at + 4)) {
  if (format_.moves()) count_ = values_.append(reader, at + 8, reader.u16(at + 6), format_.size());
}

bool FS_LayoutTables::GPOS_SinglePosFormat2::position(const FS_LayoutTables&, const TTI_LookupList&,
                                                      const TTI_Lookup&,
                                                      layout::PositionRun& glyphs, int& position,
                                                      bool) const {
  const int index = coverageIndexOf(glyphs[position].getGlyphID());
  if (index < 0 || static_cast<std::size_t>(index) >= count_) return false;
  const std::size_t at = static_cast<std::size_t>(index) * format_.size();
  layout::applyValue(glyphs, position, format_,
                     layout::readValueRecord(values_.view(), at, format_));
  return true;
}

}  // namespace QXFontService_NS
