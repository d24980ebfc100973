#include "embed/composite_glyph.h"

namespace QXFontService_NS::embed {
namespace {

// Flags of a component.
constexpr unsigned kArgumentsAreWords = 0x0001;
constexpr unsigned kHasScale = 0x0008;
constexpr unsigned kHasTwoScales = 0x0040;
constexpr unsigned kHasMatrix = 0x0080;

}  // namespace

std::uint32_t componentArgumentsSize(unsigned flags) {
  const std::uint32_t size = (flags & kArgumentsAreWords) != 0 ? 4 : 2;
  if ((flags & kHasScale) != 0) return size + 2;
  if ((flags & kHasTwoScales) != 0) return size + 4;
  if ((flags & kHasMatrix) != 0) return size + 8;
  return size;
}

bool beginsAsComposite(QXCommonNS::bytes::ByteView glyph) {
  return glyph.size() > kGlyphHeaderSize && glyph.i16(0) < 0;
}

}  // namespace QXFontService_NS::embed
