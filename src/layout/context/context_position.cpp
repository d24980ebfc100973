// Positioning by context is one operation for all contextual classes.

#include "layout/context/chain_context_format1.h"
#include "layout/context/chain_context_format2.h"
#include "layout/context/chain_context_format3.h"
#include "layout/context/context_format1.h"
#include "layout/context/context_format2.h"
#include "layout/context/context_format3.h"
#include "layout/context/position_context.h"

namespace QXFontService_NS {

bool FS_LayoutTables::TTI_ContextFormat1::position(const FS_LayoutTables& font,
                                                   const TTI_LookupList& lookupList,
                                                   const TTI_Lookup& lookup,
                                                   layout::PositionRun& glyphs, int& position,
                                                   bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

bool FS_LayoutTables::TTI_ContextFormat2::position(const FS_LayoutTables& font,
                                                   const TTI_LookupList& lookupList,
                                                   const TTI_Lookup& lookup,
                                                   layout::PositionRun& glyphs, int& position,
                                                   bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

bool FS_LayoutTables::TTI_ContextFormat3::position(const FS_LayoutTables& font,
                                                   const TTI_LookupList& lookupList,
                                                   const TTI_Lookup& lookup,
                                                   layout::PositionRun& glyphs, int& position,
                                                   bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

bool FS_LayoutTables::TTI_ChainContextFormat1::position(const FS_LayoutTables& font,
                                                        const TTI_LookupList& lookupList,
                                                        const TTI_Lookup& lookup,
                                                        layout::PositionRun& glyphs, int& position,
                                                        bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

bool FS_LayoutTables::TTI_ChainContextFormat2::position(const FS_LayoutTables& font,
                                                        const TTI_LookupList& lookupList,
                                                        const TTI_Lookup& lookup,
                                                        layout::PositionRun& glyphs, int& position,
                                                        bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

bool FS_LayoutTables::TTI_ChainContextFormat3::position(const FS_LayoutTables& font,
                                                        const TTI_LookupList& lookupList,
                                                        const TTI_Lookup& lookup,
                                                        layout::PositionRun& glyphs, int& position,
                                                        bool rightToLeft) const {
  return layout::positionContext(*this, font, lookupList, lookup, glyphs, position, rightToLeft);
}

}  // namespace QXFontService_NS
