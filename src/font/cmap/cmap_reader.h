#pragma once

#include <istream>
#include <memory>
#include <optional>

#include "font/cmap/format0.h"
#include "font/cmap/format12.h"
#include "font/cmap/format14.h"
#include "font/cmap/format2.h"
#include "font/cmap/format4.h"
#include "font/directory/table_failure.h"

namespace QXFontService_NS::cmap {

/// The decoded subtables of a font: at most one of each format.
struct CmapSubtables {
  std::unique_ptr<CmapFormat0> format0;
  std::unique_ptr<CmapFormat2> format2;
  std::unique_ptr<CmapFormat4> format4;
  std::unique_ptr<CmapFormat12> format12;
  std::unique_ptr<CmapFormat14> format14;
  /// The largest `charCount` of the subtables read, those freed since included.
  std::uint32_t maxCharCount = 0;

  /// Whether codes can be looked up at all; format 14 alone maps none.
  [[nodiscard]] bool mapCodes() const { return format0 || format2 || format4 || format12; }
};

/// What came of reading a `cmap` table.
struct CmapReading {
  CmapSubtables subtables;  ///< after a failure: those read before it, which stay in use
  bool isMacStyle = false;  ///< as passed, or set because the font had to be read that way
  TableResult failure;
};

/// Reads the `cmap` table of a font (OpenType `cmap`).
///
/// `table`: its entry in the directory, or nothing where the font has none. `isMacStyle`: the font
/// is read the Macintosh way, which lets all subtables of the Unicode platform take part at once.
[[nodiscard]] CmapReading readCmap(std::istream& stream, const std::optional<TableRange>& table,
                                   bool isMacStyle);

}  // namespace QXFontService_NS::cmap
