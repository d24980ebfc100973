#pragma once

#include <cstdint>

#include "embed/cff/cff_info.h"
#include "embed/cff/cff_table.h"

namespace QXFontService_NS::embed {

/// What the writers of CFF subsets need to know of a font.
struct CffSubsetSource {
  cff::CffTable table;                ///< the "CFF " table and the stream it is read from
  const FS_CFFInfo* info = nullptr;   ///< what was read of the table; borrowed
  std::uint16_t spaceGlyph = 0xFFFF;  ///< glyph that the font's character map gives for U+0020
};

}  // namespace QXFontService_NS::embed
