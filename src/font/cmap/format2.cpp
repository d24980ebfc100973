#include "font/cmap/format2.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cmap {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::uint32_t kHeaderSize = 6;
constexpr std::uint32_t kKeys = 256;
constexpr std::uint32_t kFixedSize = kHeaderSize + 2 * kKeys;
constexpr std::uint32_t kSubHeaderSize = 8;

using Fixed = std::array<std::byte, kFixedSize>;

/// The words that lead from a high byte to its sub-header: 8 times the sub-header's index.
class Keys {
 public:
  explicit Keys(const Fixed& fixed) : view_(ByteView(fixed).from(kHeaderSize)) {}

  [[nodiscard]] std::uint16_t operator[](unsigned high) const {
    return view_.u16(std::uint64_t{2} * high);
  }
  [[nodiscard]] std::uint32_t subHeaderCount() const {
    unsigned largest = 0;
    for (unsigned high = 0; high < kKeys; ++high) {
      largest = std::max<unsigned>(largest, (*this)[high]);
    }
    return 1 + largest / kSubHeaderSize;
  }

 private:
  ByteView view_;
};

/// The offset counts from its own field, so what follows it is taken off. The two bytes of the
/// field itself stay in: the index is one too high, and the lookup knows.
std::int32_t glyphIndexOf(std::uint16_t idRangeOffset, std::uint32_t index, std::uint32_t count) {
  if (idRangeOffset == 0) return 0;
  return (idRangeOffset - static_cast<std::int32_t>(kSubHeaderSize * (count - index - 1))) / 2;
}

CmapFormat2::SubHeader decodeSubHeader(ByteView all, std::uint32_t index, std::uint32_t count) {
  const ByteView own = all.slice(std::uint64_t{index} * kSubHeaderSize, kSubHeaderSize);
  return {own.u16(0), own.u16(2), own.i16(4), glyphIndexOf(own.u16(6), index, count)};
}

void mapHighBytes(const Keys& keys, ByteView subHeaders, std::uint32_t count, CmapFormat2& out) {
  for (unsigned high = 0; high < kKeys; ++high) {
    if (high > 0 && keys[high] == 0) continue;
    const auto entry = decodeSubHeader(subHeaders, keys[high] / kSubHeaderSize, count);
    out.subHeaders[static_cast<std::uint8_t>(high)] = entry;
    out.charCount += entry.entryCount;
  }
}

bool readArray(std::istream& stream, std::int64_t offset, std::int64_t size, CmapFormat2& out) {
  const std::uint64_t wanted = size < 2 ? 0 : static_cast<std::uint64_t>(size) / 2 * 2;
  const auto data = QXCommonNS::bytes::readBlock(stream, offset, wanted);
  const ByteView view(data);
  for (std::uint64_t at = 0; at < wanted; at += 2) out.glyphIndexArray.push_back(view.u16(at));
  return data.size() == wanted;
}

}  // namespace

std::uint16_t CmapFormat2::glyph(int code) const {
  if (code < 0 || code > 0xFFFF) return kNoGlyph;
  const auto entry = subHeaders.find(static_cast<std::uint8_t>(code >> 8));
  if (entry == subHeaders.end() || entry->second.glyphIndex == 0) return kNoGlyph;
  const SubHeader& header = entry->second;
  const int nth = (code & 0xFF) - header.firstCode;
  if (nth < 0 || nth >= header.entryCount) return kNoGlyph;
  const std::int64_t index = std::int64_t{nth} - 1 + header.glyphIndex;
  if (index < 0 || index >= static_cast<std::int64_t>(glyphIndexArray.size())) return kNoGlyph;
  const std::uint16_t word = glyphIndexArray[static_cast<std::size_t>(index)];
  const auto glyph = static_cast<std::uint16_t>(word + header.idDelta);
  return word == 0 || glyph == 0 ? kNoGlyph : glyph;
}

TableResult readFormat2(std::istream& stream, std::int64_t offset, CmapFormat2& out) {
  Fixed fixed{};
  if (!QXCommonNS::bytes::readExact(stream, offset, fixed)) {
    return readFailure("'cmap' table format 2 read error");
  }
  out.length = ByteView(fixed).u16(2);
  const Keys keys(fixed);
  const std::uint32_t count = keys.subHeaderCount();
  std::vector<std::byte> subHeaders(std::size_t{count} * kSubHeaderSize);  // at most 64 KiB
  if (!QXCommonNS::bytes::readExact(stream, offset + kFixedSize, subHeaders)) {
    return readFailure("'cmap' table format 2 SubHeaders read error");
  }
  mapHighBytes(keys, ByteView(subHeaders), count, out);
  const std::int64_t arrayAt = std::int64_t{kFixedSize} + static_cast<int>(subHeaders.size());
  if (!readArray(stream, offset + arrayAt, out.length - arrayAt, out)) {
    return readFailure("'cmap' table format 2 glyphIndexArray read error");
  }
  return {};
}

}  // namespace QXFontService_NS::cmap
