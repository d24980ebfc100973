#include "layout/gpos/pair_values.h"

#include "layout/context/lookup_flag.h"

namespace QXFontService_NS::layout {

bool PairValues::apply(PositionRun& glyphs, int first, int second,
                       const QXCommonNS::bytes::ByteView& bytes, std::uint64_t at) const {
  if (format1_.moves()) applyValue(glyphs, first, format1_, readValueRecord(bytes, at, format1_));
  if (format2_.moves())
    applyValue(glyphs, second, format2_, readValueRecord(bytes, at + size1_, format2_));
  return move();
}

void PairValues::moveOn(const PositionRun& glyphs, int& position, int second) const {
  if (glyphs.isAbsolute(position)) position = format2_.isZero() ? second - 1 : second;
}

int secondOfPair(const FS_LayoutTables& font, const TTI_Lookup& lookup, PositionRun& glyphs,
                 int position) {
  int next = position + 1;
  if (next < glyphs.size() && glyphs.isAbsolute(position)) {
    while (next < glyphs.size() && isSkipped(font, lookup.flag, glyphs[next].getGlyphIDClassPair()))
      ++next;
    if (!glyphs.spend(next - position)) return -1;
  }
  return next < glyphs.size() ? next : -1;
}

}  // namespace QXFontService_NS::layout
