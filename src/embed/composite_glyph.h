#pragma once

#include <cstdint>

#include "common/bytes/byte_reader.h"
#include "common/bytes/byte_view.h"

namespace QXFontService_NS::embed {

/// Bytes in front of the components of a glyph: numberOfContours and the bounding box (OpenType
/// `glyf`).
inline constexpr std::uint32_t kGlyphHeaderSize = 10;

/// How many bytes of a component stand behind its flags and its glyph id.
[[nodiscard]] std::uint32_t componentArgumentsSize(unsigned flags);

/// Whether a glyph's bytes begin as those of a composite do, with room for more than the header.
[[nodiscard]] bool beginsAsComposite(QXCommonNS::bytes::ByteView glyph);

/// Calls `take` with the glyph id of each component in `components`, which stand behind the header.
/// A component that says it is longer than the bytes ends the walk; its own id counts.
///
/// @return where that component begins, to go on there when more bytes have come; 0 where the last
///   component was met.
template <class Take>
std::uint64_t forEachComponent(QXCommonNS::bytes::ByteView components, Take take) {
  constexpr unsigned kMoreComponents = 0x0020;
  QXCommonNS::bytes::ByteReader reader(components);
  for (;;) {
    const std::uint64_t start = reader.position();
    if (reader.left() < 4) return start;
    const unsigned flags = reader.u16();
    take(reader.u16());
    if ((flags & kMoreComponents) == 0) return 0;
    reader.skip(componentArgumentsSize(flags));
    if (reader.failed()) return start;
  }
}

}  // namespace QXFontService_NS::embed
