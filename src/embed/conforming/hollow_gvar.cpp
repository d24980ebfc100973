#include "embed/conforming/hollow_gvar.h"

#include <algorithm>

#include "common/bytes/byte_writer.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

constexpr std::uint64_t kHeaderSize = 20;

/// The fields of the header that the layout follows from.
struct Header {
  explicit Header(ByteView gvar)
      : fixedPart(gvar.slice(0, 8)),
        sharedTuplesSize(std::uint64_t{2} * gvar.u16(4) * gvar.u16(6)),
        sharedTuplesOffset(gvar.u32(8)),
        glyphCount(gvar.u16(12)),
        flags(gvar.u16(14)),
        dataOffset(gvar.u32(16)) {}

  [[nodiscard]] bool hasLongOffsets() const { return (flags & 1) != 0; }
  [[nodiscard]] std::uint64_t offsetsSize() const {
    return (std::uint64_t{glyphCount} + 1) * (hasLongOffsets() ? 4 : 2);
  }

  ByteView fixedPart;  // version, axisCount, sharedTupleCount
  std::uint64_t sharedTuplesSize;
  std::uint32_t sharedTuplesOffset;
  std::uint16_t glyphCount;
  std::uint16_t flags;
  std::uint32_t dataOffset;
};

/// The variation data of a glyph; empty where its offsets fall or lie outside.
ByteView variations(ByteView gvar, const Header& header, std::uint64_t glyph) {
  const auto offset = [&](std::uint64_t i) {
    if (header.hasLongOffsets()) return std::uint64_t{gvar.u32(kHeaderSize + i * 4)};
    return std::uint64_t{2} * gvar.u16(kHeaderSize + i * 2);
  };
  const std::uint64_t start = offset(glyph);
  const std::uint64_t end = offset(glyph + 1);
  if (start > end) return {};
  return gvar.slice(header.dataOffset + start, end - start);
}

/// The offsets go to `offsets`, the data to `data`.
void writeGlyphs(ByteView gvar, const Header& header, const std::vector<KeptGlyph>& kept,
                 ByteWriter& offsets, ByteWriter& data) {
  const auto writeOffset = [&] {
    const auto offset = static_cast<std::uint32_t>(data.size());
    if (header.hasLongOffsets()) {
      offsets.u32(offset);
    } else {
      offsets.u16(static_cast<std::uint16_t>(offset / 2));
    }
  };
  auto next = kept.begin();
  for (unsigned glyph = 0; glyph < header.glyphCount; ++glyph) {
    writeOffset();
    if (next == kept.end() || next->id != glyph) continue;
    data.bytes(variations(gvar, header, glyph)).align(2);
    ++next;
  }
  writeOffset();
}

}  // namespace

std::vector<std::byte> hollowGvar(ByteView gvar, const std::vector<KeptGlyph>& kept) {
  const Header header(gvar);
  const ByteView tuples = gvar.slice(header.sharedTuplesOffset, header.sharedTuplesSize);
  const bool sound =
      gvar.contains(kHeaderSize, header.offsetsSize()) && tuples.size() == header.sharedTuplesSize;
  if (!sound) return {gvar.span().begin(), gvar.span().end()};
  ByteWriter offsets;
  ByteWriter data;
  writeGlyphs(gvar, header, kept, offsets, data);
  const auto tuplesOffset = static_cast<std::uint32_t>(kHeaderSize + offsets.size());
  ByteWriter out;
  out.bytes(header.fixedPart).u32(tuplesOffset).u16(header.glyphCount).u16(header.flags);
  out.u32(tuplesOffset + static_cast<std::uint32_t>(tuples.size()));
  out.bytes(offsets.view()).bytes(tuples).bytes(data.view());
  return out.take();
}

}  // namespace QXFontService_NS::embed::conforming
