#include "layout/gpos/pair_pos.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

/// The class of a glyph; a glyph without one is of class 0 where the pair is placed absolutely,
/// and of none, -1, elsewhere. Kept: hosts get different pairs with and without the bit.
int classIn(const layout::ClassDefPtr& classes, unsigned short glyph, bool absolute) {
  const int cls = classes ? classes->classOf(glyph) : -1;
  return cls == -1 && absolute ? 0 : cls;
}

}  // namespace

FS_LayoutTables::GPOS_PairPosFormat2::GPOS_PairPosFormat2(layout::GraphReader& reader,
                                                          std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      values_(reader.u16(at + 4), reader.u16(at + 6)),
      firstClasses_(layout::sharedClassDef(reader, at, reader.u16(at + 8))),
      secondClasses_(layout::sharedClassDef(reader, at, reader.u16(at + 10))),
      secondClassCount_(reader.u16(at + 14)) {
  const std::size_t count = std::size_t{reader.u16(at + 12)} * secondClassCount_;
  if (values_.move()) count_ = records_.append(reader, at + 16, count, values_.size());
}

bool FS_LayoutTables::GPOS_PairPosFormat2::position(const FS_LayoutTables& font,
                                                    const TTI_LookupList&, const TTI_Lookup& lookup,
                                                    layout::PositionRun& glyphs, int& position,
                                                    bool) const {
  if (!secondClasses_ || coverageIndexOf(glyphs[position].getGlyphID()) < 0) return false;
  const int second = layout::secondOfPair(font, lookup, glyphs, position);
  if (second < 0) return false;
  const bool absolute = glyphs.isAbsolute(position);
  const int secondClass = classIn(secondClasses_, glyphs[second].getGlyphID(), absolute);
  const int firstClass = classIn(firstClasses_, glyphs[position].getGlyphID(), absolute);
  if (secondClass < 0 || firstClass < 0) return false;
  const bool applied = applyClasses(glyphs, position, second, static_cast<unsigned>(firstClass),
                                    static_cast<unsigned>(secondClass));
  values_.moveOn(glyphs, position, second);  // required also where nothing was applied
  return applied;
}

bool FS_LayoutTables::GPOS_PairPosFormat2::applyClasses(layout::PositionRun& glyphs, int first,
                                                        int second, unsigned firstClass,
                                                        unsigned secondClass) const {
  const std::size_t record = std::size_t{firstClass} * secondClassCount_ + secondClass;
  if (secondClass >= secondClassCount_ || record >= count_) return false;
  return values_.apply(glyphs, first, second, records_.view(), record * values_.size());
}

}  // namespace QXFontService_NS
