#include "layout/gpos/mark_base_pos.h"

#include "layout/gpos/position_run.h"
#include "layout/gpos/record_flag.h"
#include "layout/table/graph_reader.h"

namespace QXFontService_NS {

namespace {

using layout::PositionRun;

/// How a mark looks for its base.
struct BaseSearch {
  bool seesZeroWidth;
  bool passesComponents;

  BaseSearch(const GlyphIDPosition& mark, bool rightToLeft)
      : seesZeroWidth((mark.getFlag() & layout::kSeesZeroWidth) != 0 ||
                      (rightToLeft && (mark.getFlag() & layout::kAbsolute) != 0)),
        passesComponents((mark.getFlag() & layout::kPassesComponents) != 0) {}

  PositionRun::Sought kind() const {
    using enum PositionRun::Sought;
    if (passesComponents)
      return seesZeroWidth ? baseSeeingZeroWidthButNoComponent : baseButNoComponent;
    return seesZeroWidth ? baseSeeingZeroWidth : base;
  }

  /// A glyph of a class that is none of the four is a base too.
  bool takes(const GlyphIDPosition& glyph) const {
    if (glyph.getWidth() == 0 && !seesZeroWidth) return false;
    const int cls = glyph.getGlyphClassDef();
    if (cls == GCD_MARK) return false;
    const bool mayBeComponent = cls >= GCD_BASE && cls <= GCD_COMPONENT;
    return !(mayBeComponent && passesComponents && glyph.getCompInfo() > 0);
  }
};

int findBase(PositionRun& glyphs, int position, bool rightToLeft) {
  const BaseSearch search(glyphs[position], rightToLeft);
  return glyphs.findBefore(position, search.kind(), 0,
                           [&](int i) { return search.takes(glyphs[i]); });
}

/// Attaches the mark so that its anchor meets that of the base. Where the base is placed
/// absolutely, all moves from the base up to the mark count.
void attachToBase(PositionRun& glyphs, int position, int base, const layout::GPOS_Anchor& from,
                  const layout::GPOS_Anchor& to, bool rightToLeft) {
  const GlyphIDPosition& glyph = glyphs[base];
  int x = to.getX() - from.getX();
  int y = from.getY() - to.getY();
  if (!glyphs.isAbsolute(base)) {
    if (!rightToLeft) x -= glyph.getWidth();
    return glyphs.attach(position, x, y);
  }
  const auto sum = static_cast<short>(glyphs.sumOfMoves(base, position));
  if (rightToLeft) {
    x += sum - glyph.getMoveX2();
    y += glyph.getMoveY();
  } else {
    x += glyph.getMoveX1() - sum;
  }
  glyphs.attach(position, x, y);
}

}  // namespace

FS_LayoutTables::GPOS_MarkBasePosFormat1::GPOS_MarkBasePosFormat1(layout::GraphReader& reader,
                                                                  std::uint64_t at)
    : TTI_SubTable(layout::readCoverage(reader, at, reader.u16(at + 2))),
      baseCoverage_(layout::readCoverage(reader, at, reader.u16(at + 4))),
      marks_(reader, at + reader.u16(at + 8)),
      bases_(reader.u16(at + 6)) {
  const std::uint64_t baseArray = at + reader.u16(at + 10);
  bases_.append(reader, baseArray, baseArray + 2, reader.u16(baseArray));
}

bool FS_LayoutTables::GPOS_MarkBasePosFormat1::position(const FS_LayoutTables&,
                                                        const TTI_LookupList&, const TTI_Lookup&,
                                                        PositionRun& glyphs, int& position,
                                                        bool rightToLeft) const {
  const layout::Mark mark = marks_.mark(coverageIndexOf(glyphs[position].getGlyphID()));
  if (mark.anchor.isNull()) return false;
  const int base = findBase(glyphs, position, rightToLeft);
  if (base < 0) return false;
  const GPOS_Anchor anchor =
      bases_.anchor(layout::indexIn(baseCoverage_, glyphs[base].getGlyphID()), mark.markClass);
  if (anchor.isNull()) return false;
  attachToBase(glyphs, position, base, mark.anchor, anchor, rightToLeft);
  return true;
}

}  // namespace QXFontService_NS
