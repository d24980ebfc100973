#pragma once

#include <string>
#include <vector>

#include "common/bytes/byte_view.h"
#include "layout/table/class_def.h"
#include "layout/table/gdef.h"
#include "layout/table/layout_table.h"
#include "layout/table/layout_tables.h"

namespace qxtest {

using GlyphIds = std::vector<unsigned short>;

/// A view of bytes that a builder wrote; they must outlive it.
inline QXCommonNS::bytes::ByteView viewOf(const std::string& bytes) {
  return {bytes.data(), bytes.size()};
}

/// The layout tables of a font, read from what builders wrote.
struct TestFont : QXFontService_NS::FS_LayoutTables {
  explicit TestFont(unsigned glyphs = 1000) { numGlyphs = glyphs; }
  explicit TestFont(const std::string& gsubBytes, const std::string& gdefBytes = {}) : TestFont() {
    if (!gdefBytes.empty()) QXFontService_NS::layout::readGDEF(*this, viewOf(gdefBytes));
    QXFontService_NS::layout::readGSUB(*this, viewOf(gsubBytes));
  }
};

}  // namespace qxtest
