#include "layout/gpos/cursive_pos.h"

#include "layout/context/lookup_flag.h"
#include "layout/table/graph_reader.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS {

namespace {

using layout::PositionRun;

/// The glyph that the one at `position` is joined to, or -1: the next one that the lookup does not
/// skip, where the first is placed absolutely; else the next one that has a width.
int nextToJoin(const FS_LayoutTables& font, unsigned flag, PositionRun& glyphs, int position) {
  const bool absolute = glyphs.isAbsolute(position);
  int next = position + 1;
  for (; next < glyphs.size(); ++next) {
    const GlyphIDPosition& glyph = glyphs[next];
    if (absolute ? !layout::isSkipped(font, flag, glyph.getGlyphIDClassPair())
                 : glyph.getWidth() != 0)
      break;
  }
  return glyphs.spend(next - position) && next < glyphs.size() ? next : -1;
}

bool endsJoin(const GlyphIDPosition& glyph) {
  return glyph.getDecompositionType() == U_DT_FINAL ||
         glyph.getDecompositionType() == U_DT_ISOLATED;
}

/// Lifts the glyphs joined before `position` along with it. A glyph without width is passed before
/// it could end the walk.
void liftJoined(PositionRun& glyphs, int position, int dy) {
  int k = position - 1;
  for (; k >= 0; --k) {
    if (glyphs[k].getWidth() == 0) continue;
    if (endsJoin(glyphs[k])) break;
    glyphs.changeDirectly(k,
                          [dy](GlyphIDPosition& glyph) { glyph.setMoveY(glyph.getMoveY() + dy); });
  }
  // What a walk cost is counted behind it: the next search fails, never half a walk.
  static_cast<void>(glyphs.spend(position - k));
}

/// Takes the glyphs without width between the two along.
void shiftBetween(PositionRun& glyphs, int position, int next, int dx) {
  for (int k = next - 1; k > position; --k) {
    if (glyphs[k].getWidth() != 0) continue;
    glyphs.changeDirectly(k, [dx](GlyphIDPosition& glyph) {
      glyph.addMoveX1(dx);
      glyph.addMoveX2(-dx);
    });
  }
}

}  // namespace

FS_LayoutTables::GPOS_CursivePosFormat1::GPOS_CursivePosFormat1(layout::GraphReader& reader,
                                                                std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))) {
  const std::size_t count = reader.countThatFits(at + 6, reader.u16(at + 4), 4);
  if (!reader.charge(count * sizeof(Joints))) return;
  joints_.reserve(count);
  for (std::uint64_t from = at + 6; joints_.size() < count; from += 4)
    joints_.push_back({layout::readAnchor(reader, at, reader.u16(from)),
                       layout::readAnchor(reader, at, reader.u16(from + 2))});
}

FS_LayoutTables::GPOS_CursivePosFormat1::Joints FS_LayoutTables::GPOS_CursivePosFormat1::jointsOf(
    unsigned short glyph) const {
  const int index = coverageIndexOf(glyph);
  if (index < 0 || static_cast<std::size_t>(index) >= joints_.size()) return {};
  return joints_[static_cast<std::size_t>(index)];
}

bool FS_LayoutTables::GPOS_CursivePosFormat1::position(const FS_LayoutTables& font,
                                                       const TTI_LookupList&,
                                                       const TTI_Lookup& lookup,
                                                       PositionRun& glyphs, int& position,
                                                       bool rightToLeft) const {
  const GPOS_Anchor exit = jointsOf(glyphs[position].getGlyphID()).exit;
  if (exit.isNull()) return false;
  const int next = nextToJoin(font, lookup.flag, glyphs, position);
  if (next < 0) return false;
  const GPOS_Anchor entry = jointsOf(glyphs[next].getGlyphID()).entry;
  if (entry.isNull()) return false;
  const int dx = entry.getX() - glyphs[next].getWidth() - exit.getX();
  const int dy = exit.getY() - entry.getY();
  if (!rightToLeft || !glyphs.isAbsolute(next)) {
    glyphs.attach(position, dx, dy);
    return true;
  }
  // The chained form sets the moves past all rules: the bit of outside positions stays, and
  // `moveX2` is not compensated.
  const int y = glyphs[next].getMoveY() + dy;
  glyphs.changeDirectly(position, [dx, y](GlyphIDPosition& glyph) {
    glyph.setMoveX1(dx);
    glyph.setMoveY(y);
  });
  liftJoined(glyphs, position, dy);
  shiftBetween(glyphs, position, next, dx);
  return true;
}

}  // namespace QXFontService_NS
