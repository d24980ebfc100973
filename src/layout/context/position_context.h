#pragma once

#include "layout/table/sub_table.h"

namespace QXFontService_NS::layout {

class PositionRun;

/// What `position` does in all six contextual classes: matches `rule` at `position`, and runs the
/// lookups of its records in the `GPOS` table. Stands in `gpos/`.
bool positionContext(const TTI_SubTable& rule, const FS_LayoutTables& font,
                     const FS_LayoutTables::TTI_LookupList& lookupList,
                     const FS_LayoutTables::TTI_Lookup& lookup, PositionRun& glyphs, int& position,
                     bool rightToLeft);

}  // namespace QXFontService_NS::layout
