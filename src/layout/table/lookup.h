#pragma once

#include <vector>

#include "layout/table/glyph_set.h"
#include "layout/table/layout_tables.h"
#include "layout/table/sub_table.h"

namespace QXFontService_NS {

/// A lookup (OpenType Lookup table).
struct FS_LayoutTables::TTI_Lookup {
  /// In `GSUB` the type behind any extension; in `GPOS` as the table says.
  unsigned int type = 0;
  unsigned int flag = 0;  ///< bits in `context/lookup_flag.h`
  /// An entry is null where the type or format is not supported; a trailing run of nulls may be
  /// left out.
  std::vector<layout::SubTablePtr> subTables;
  /// At least every glyph at which the lookup can do something.
  layout::GlyphSet starts;
};

namespace layout {

using TTI_Lookup = FS_LayoutTables::TTI_Lookup;

}  // namespace layout
}  // namespace QXFontService_NS
