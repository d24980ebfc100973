#include "layout/context/position_context.h"

#include "layout/gpos/position_run.h"
#include "layout/table/lookup.h"

namespace QXFontService_NS::layout {

/// The records are left in `glyphs`, to be run next: a font may nest rules as deep as it likes, and
/// the call stack is not the place for that. So the answer itself is always false.
///
/// Kept: the lookup's flag counts only from right to left, and where the first glyph of the whole
/// run is placed absolutely.
bool positionContext(const TTI_SubTable& rule, const FS_LayoutTables& font,
                     const FS_LayoutTables::TTI_LookupList&,
                     const FS_LayoutTables::TTI_Lookup& lookup, PositionRun& glyphs, int& position,
                     bool rightToLeft) {
  const unsigned flag = rightToLeft && glyphs.isAbsolute(0) ? lookup.flag : 0;
  PositionRun::Records records;
  const int count =
      rule.matchContext(font, records, glyphs.pairs(), position, flag, glyphs.passedOver());
  if (count > 0) glyphs.leaveRecords(records.first(static_cast<std::size_t>(count)));
  return false;
}

}  // namespace QXFontService_NS::layout
