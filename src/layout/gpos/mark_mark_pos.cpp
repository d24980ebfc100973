#include "layout/gpos/mark_mark_pos.h"

#include "layout/context/lookup_flag.h"
#include "layout/gpos/record_flag.h"
#include "layout/table/graph_reader.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS {

namespace {

using layout::PositionRun;

/// The glyph that carries the mark, or -1: the first before it that the lookup does not skip. A
/// base that is skipped ends the walk, as marks of different bases do not meet.
int findSecond(const FS_LayoutTables& font, unsigned flag, PositionRun& glyphs, int position) {
  const auto skips = [&](int i) {
    return layout::isSkipped(font, flag, glyphs[i].getGlyphIDClassPair());
  };
  const int found = glyphs.findBefore(
      position, PositionRun::Sought::notSkippedOrBase, flag,
      [&](int i) { return !skips(i) || glyphs[i].getGlyphClassDef() == GCD_BASE; });
  return found < 0 || skips(found) ? -1 : found;
}

/// Whether both marks belong to one component, where the host says to which.
bool belongTogether(const GlyphIDPosition& mark, const GlyphIDPosition& second, bool rightToLeft) {
  constexpr int kBoth = layout::kAbsolute | layout::kByComponent;
  if (!rightToLeft || (second.getFlag() & kBoth) != kBoth) return true;
  return mark.getSkipInfo() == second.getSkipInfo();
}

/// Kept: where the second glyph is not placed absolutely, x has the sign opposite to that of
/// mark-to-base.
void attachToMark(PositionRun& glyphs, int position, int second, const layout::GPOS_Anchor& from,
                  const layout::GPOS_Anchor& to) {
  const GlyphIDPosition& glyph = glyphs[second];
  const int x = to.getX() - from.getX();
  const int y = from.getY() - to.getY();
  if (!glyphs.isAbsolute(second)) return glyphs.attach(position, -x, y);
  glyphs.attach(position, x - glyph.getMoveX2(), y + glyph.getMoveY());
}

}  // namespace

FS_LayoutTables::GPOS_MarkMarkPosFormat1::GPOS_MarkMarkPosFormat1(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      secondCoverage_(layout::readCoverage(reader, at, reader.u16(at + 4))),
      marks_(reader, at + reader.u16(at + 8)),
      seconds_(reader.u16(at + 6)) {
  const std::uint64_t mark2Array = at + reader.u16(at + 10);
  seconds_.append(reader, mark2Array, mark2Array + 2, reader.u16(mark2Array));
}

bool FS_LayoutTables::GPOS_MarkMarkPosFormat1::position(const FS_LayoutTables& font,
                                                        const TTI_LookupList&,
                                                        const TTI_Lookup& lookup,
                                                        PositionRun& glyphs, int& position,
                                                        bool rightToLeft) const {
  const layout::Mark mark = marks_.mark(coverageIndexOf(glyphs[position].getGlyphID()));
  if (mark.anchor.isNull()) return false;
  const int second = findSecond(font, lookup.flag, glyphs, position);
  if (second < 0 || !belongTogether(glyphs[position], glyphs[second], rightToLeft)) return false;
  const GPOS_Anchor anchor = seconds_.anchor(
      layout::indexIn(secondCoverage_, glyphs[second].getGlyphID()), mark.markClass);
  if (anchor.isNull()) return false;
  attachToMark(glyphs, position, second, mark.anchor, anchor);
  return true;
}

}  // namespace QXFontService_NS
