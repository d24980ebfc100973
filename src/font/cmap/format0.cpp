#include "font/cmap/format0.h"

#include <algorithm>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cmap {
namespace {

constexpr std::size_t kHeaderSize = 6;

}  // namespace

std::uint16_t CmapFormat0::glyph(int code) const {
  if (code < 0 || code >= static_cast<int>(glyphIdArray.size())) return kNoGlyph;
  const std::uint8_t glyph = glyphIdArray[static_cast<std::size_t>(code)];
  return glyph == 0 ? kNoGlyph : glyph;
}

TableResult readFormat0(std::istream& stream, std::int64_t offset, CmapFormat0& out) {
  std::array<std::byte, kHeaderSize + 256> data{};
  if (!QXCommonNS::bytes::readExact(stream, offset, data)) {
    return readFailure("'cmap' table format 0 read error");
  }
  std::transform(data.begin() + kHeaderSize, data.end(), out.glyphIdArray.begin(),
                 [](std::byte glyph) { return std::to_integer<std::uint8_t>(glyph); });
  const auto empty = std::count(out.glyphIdArray.begin(), out.glyphIdArray.end(), 0);
  out.charCount = 1 + 256 - static_cast<std::uint32_t>(empty);
  return {};
}

}  // namespace QXFontService_NS::cmap
