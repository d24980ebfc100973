#include "layout/gpos/mark_lig_pos.h"

#include "layout/context/lookup_flag.h"
#include "layout/gpos/record_flag.h"
#include "layout/table/graph_reader.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS {

namespace {

using layout::PositionRun;

/// Whether the host marked the glyph before the mark, which may be another mark.
bool isDirect(const PositionRun& glyphs, int position) {
  return (glyphs[position - 1].getFlag() & layout::kByComponent) != 0;
}

int findLigature(const FS_LayoutTables& font, unsigned flag, PositionRun& glyphs, int position,
                 bool direct) {
  using enum PositionRun::Sought;
  if (direct)
    return glyphs.findBefore(position, notMark, 0,
                             [&](int i) { return glyphs[i].getGlyphClassDef() != GCD_MARK; });
  return glyphs.findBefore(position, notSkipped, flag, [&](int i) {
    return !layout::isSkipped(font, flag, glyphs[i].getGlyphIDClassPair());
  });
}

/// The component that the host names from 1 on, or the last one; the first where it names none.
std::size_t componentOf(const GlyphIDPosition& mark, std::size_t count, bool direct) {
  if (!direct) return 0;
  const int named = mark.getSkipInfo();
  const bool exists = named > 0 && static_cast<std::size_t>(named) <= count;
  return exists ? static_cast<std::size_t>(named) - 1 : count - 1;
}

/// Kept: without bit 0x4000 or with it, y has one sign from right to left and the other one from
/// left to right; and only a ligature marked so adds its own move.
void attachToLigature(PositionRun& glyphs, int position, const GlyphIDPosition& ligature,
                      const layout::GPOS_Anchor& from, const layout::GPOS_Anchor& to, bool direct,
                      bool rightToLeft) {
  const int x = to.getX() - from.getX();
  const int y = from.getY() - to.getY();
  if (!rightToLeft) return glyphs.attach(position, x - ligature.getMoveX2(), -y);
  glyphs.attach(position, direct ? x + ligature.getMoveX1() : x, y);
}

}  // namespace

FS_LayoutTables::GPOS_MarkLigPosFormat1::GPOS_MarkLigPosFormat1(layout::GraphReader& reader,
                                                                std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      ligatureCoverage_(layout::readCoverage(reader, at, reader.u16(at + 4))),
      marks_(reader, at + reader.u16(at + 8)),
      anchors_(reader.u16(at + 6)) {
  readLigatures(reader, at + reader.u16(at + 10));
}

void FS_LayoutTables::GPOS_MarkLigPosFormat1::readLigatures(layout::GraphReader& reader,
                                                            std::uint64_t ligatureArray) {
  const std::size_t count = reader.countThatFits(ligatureArray + 2, reader.u16(ligatureArray), 2);
  if (!reader.charge(count * sizeof(Ligature))) return;
  ligatures_.resize(count);
  std::uint64_t from = ligatureArray + 2;
  for (Ligature& ligature : ligatures_) {
    const unsigned offset = reader.u16(from);
    from += 2;
    if (offset == 0) continue;
    const std::uint64_t attach = ligatureArray + offset;
    ligature.firstComponent = anchors_.size();
    ligature.componentCount = anchors_.append(reader, attach, attach + 2, reader.u16(attach));
  }
}

FS_LayoutTables::GPOS_MarkLigPosFormat1::Ligature
FS_LayoutTables::GPOS_MarkLigPosFormat1::ligatureOf(unsigned short glyph) const {
  const int index = layout::indexIn(ligatureCoverage_, glyph);
  if (index < 0 || static_cast<std::size_t>(index) >= ligatures_.size()) return {};
  return ligatures_[static_cast<std::size_t>(index)];
}

bool FS_LayoutTables::GPOS_MarkLigPosFormat1::position(const FS_LayoutTables& font,
                                                       const TTI_LookupList&,
                                                       const TTI_Lookup& lookup,
                                                       PositionRun& glyphs, int& position,
                                                       bool rightToLeft) const {
  if (position == 0) return false;
  const layout::Mark mark = marks_.mark(coverageIndexOf(glyphs[position].getGlyphID()));
  if (mark.anchor.isNull()) return false;
  const bool direct = isDirect(glyphs, position);
  const int place = findLigature(font, lookup.flag, glyphs, position, direct);
  if (place < 0) return false;
  const Ligature ligature = ligatureOf(glyphs[place].getGlyphID());
  if (ligature.componentCount == 0) return false;
  const std::size_t row =
      ligature.firstComponent + componentOf(glyphs[position], ligature.componentCount, direct);
  const GPOS_Anchor anchor = anchors_.anchor(static_cast<std::int64_t>(row), mark.markClass);
  if (anchor.isNull()) return false;
  attachToLigature(glyphs, position, glyphs[place], mark.anchor, anchor, direct, rightToLeft);
  return true;
}

}  // namespace QXFontService_NS
