#pragma once

#include "layout/table/layout_tables.h"

namespace QXFontService_NS {

/// One script and language of a font's layout tables; what hosts hold as an opaque handle. It
/// borrows from the font and must not outlive it.
struct FS_GSUBGPOSInfo {
  unsigned int scriptTag = 0;  ///< as asked for, whether or not the font has it
  const FS_LayoutTables* font = nullptr;
  // Null where the script or the language is missing.
  const FS_LayoutTables::TTI_LayoutTable* gsub = nullptr;
  const FS_LayoutTables::TTI_LayoutTable* gpos = nullptr;
  const FS_LayoutTables::TTI_LangSys* gsubLangSys = nullptr;
  const FS_LayoutTables::TTI_LangSys* gposLangSys = nullptr;
  // Whether the default language system was turned to, even where there is none.
  bool gsubDefault = false;
  bool gposDefault = false;
};

}  // namespace QXFontService_NS
