#pragma once

#include <functional>
#include <istream>

#include "font/sfnt/loaded_tables.h"
#include "font/sfnt/sfnt_records.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS::sfnt {

/// What the load of a font's tables starts from.
struct LoadRequest {
  std::istream& stream;
  /// May get `isMacStyle`: some character maps can only be read that way.
  SfntRecords& records;
  /// Filled from `GDEF`, `GPOS` and `GSUB`.
  FS_LayoutTables& layout;
  /// The font's class is that of fonts with `CFF ` outlines.
  bool isOpenType = false;
  /// Codes that map to glyph 0 have that glyph.
  bool useZeroGlyph = false;
};

/// Reads the big tables of a font, one after the other. A table that fails is reported, and the
/// load goes on with the next one: a font with a bad `GPOS` still has its characters.
[[nodiscard]] LoadedTables readTables(const LoadRequest& request,
                                      const std::function<void(const TableFailure&)>& report);

}  // namespace QXFontService_NS::sfnt
