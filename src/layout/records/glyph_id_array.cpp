#include "qxfontservice/glyph_id_array.h"

#include <algorithm>

#include "qxfontservice/glyph_id_position.h"

namespace QXFontService_NS {

GlyphIDArray::GlyphIDArray() = default;
GlyphIDArray::GlyphIDArray(int n) : pairs_(n > 0 ? static_cast<std::size_t>(n) : 0) {}
GlyphIDArray::GlyphIDArray(const GlyphIDArray&) = default;
GlyphIDArray& GlyphIDArray::operator=(const GlyphIDArray&) = default;
GlyphIDArray::~GlyphIDArray() = default;

void GlyphIDArray::clear() {
  pairs_.clear();
}

void GlyphIDArray::push_back(const GlyphIDClassPair& pair) {
  pairs_.push_back(GlyphIDClassPair(pair));
}

void GlyphIDArray::push_back(unsigned short glyph, GlyphClassDef cls) {
  pairs_.emplace_back(glyph, cls);
}

void GlyphIDArray::insert(int i, const GlyphIDClassPair& pair) {
  const GlyphIDClassPair copy = pair;
  const bool inside = i >= 0 && i < size();
  pairs_.insert(inside ? pairs_.begin() + i : pairs_.end(), copy);
}

void GlyphIDArray::insert(int i, unsigned short glyph, GlyphClassDef cls) {
  insert(i, GlyphIDClassPair(glyph, cls));
}

void GlyphIDArray::erase(int first, int last) {
  const int from = std::max(first, 0);
  const int to = std::min(last, size());
  if (from < to) pairs_.erase(pairs_.begin() + from, pairs_.begin() + to);
}

int GlyphIDArray::readGIDs(const std::vector<GlyphIDPosition>& positions, bool skipIgnored) {
  pairs_.clear();
  pairs_.reserve(positions.size());
  for (const GlyphIDPosition& position : positions) {
    const bool leftOut =
        skipIgnored ? position.getGlyphClassDef() == GCD_IGNORED : !position.hasGlyph();
    if (!leftOut) pairs_.push_back(position.getGlyphIDClassPair());
  }
  return size();
}

}  // namespace QXFontService_NS
