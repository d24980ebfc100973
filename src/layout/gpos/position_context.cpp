#include "layout/context/position_context.h"

namespace QXFontService_NS::layout {

bool positionContext(const TTI_SubTable&, const FS_LayoutTables&,
                     const FS_LayoutTables::TTI_LookupList&, const FS_LayoutTables::TTI_Lookup&,
                     PositionRun&, int&, bool) {
  return false;
}

}  // namespace QXFontService_NS::layout
