#include "qxfontservice/glyph_id_array2.h"

namespace QXFontService_NS {

GlyphIDArray2::GlyphIDArray2() = default;
GlyphIDArray2::GlyphIDArray2(int n)
    : GlyphIDArray(n), words_(n > 0 ? static_cast<std::size_t>(n) : 0) {}
GlyphIDArray2::GlyphIDArray2(const GlyphIDArray2&) = default;
GlyphIDArray2& GlyphIDArray2::operator=(const GlyphIDArray2&) = default;
GlyphIDArray2::~GlyphIDArray2() = default;

void GlyphIDArray2::clear() {
  GlyphIDArray::clear();
  words_.clear();
}

int GlyphIDArray2::readGIDs(const std::vector<GlyphIDPosition>& positions, bool skipIgnored) {
  words_.clear();
  return GlyphIDArray::readGIDs(positions, skipIgnored);
}

}  // namespace QXFontService_NS
