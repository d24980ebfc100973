#include "font/cmap/format4.h"

#include <array>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cmap {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::uint32_t kHeaderSize = 14;

// The arrays endCode, (a pad word), startCode, idDelta, idRangeOffset, in words; glyphs follow.
constexpr std::uint32_t kBytesASegment = 8;
constexpr std::uint32_t kPadSize = 2;

std::uint32_t charCountOf(const CmapFormat4& table) {
  const ByteView words(table.bytes);
  std::uint32_t count = 0;
  for (std::uint64_t segment = 0; segment < table.segCount; ++segment) {
    const std::uint32_t end = words.u16(2 * segment);
    const std::uint32_t start = words.u16(2 * (table.segCount + 1 + segment));
    if (end == 0xFFFF) break;
    if (start <= end) count += end - start + 1;
  }
  return count;
}

}  // namespace

std::uint16_t CmapFormat4::word(std::uint64_t index) const {
  return ByteView(bytes).u16(2 * index);
}

std::uint16_t CmapFormat4::glyphInSegment(std::uint64_t segment, int code) const {
  const std::uint16_t idDelta = word(2 * segCount + 1 + segment);
  const std::uint64_t rangeIndex = 3 * segCount + 1 + segment;
  const std::uint16_t idRangeOffset = word(rangeIndex);
  if (idRangeOffset == 0) return static_cast<std::uint16_t>(code + idDelta);
  const auto nth = static_cast<std::uint64_t>(code - startCode(segment));
  const auto fetched = ByteView(bytes).tryU16(2 * (rangeIndex + idRangeOffset / 2 + nth));
  if (!fetched) return kNoGlyph;
  // Kept: a fetched 0 gets idDelta like any other word, though the format calls it missing.
  return static_cast<std::uint16_t>(*fetched + idDelta);
}

std::uint16_t CmapFormat4::glyphByHalving(int code) const {
  std::int64_t low = 0;
  // Kept: one too high, so that the pad word may stand for the end of a segment more. What lies
  // behind the arrays then tells its start: it shows in damaged tables only.
  std::int64_t high = segCount;
  while (low <= high) {
    const std::int64_t middle = (low + high) / 2;
    const auto segment = static_cast<std::uint64_t>(middle);
    if (endCode(segment) < code) {
      low = middle + 1;
    } else if (startCode(segment) > code) {
      high = middle - 1;
    } else {
      return glyphInSegment(segment, code);
    }
  }
  return kNoGlyph;
}

std::uint16_t CmapFormat4::glyph(int code) const {
  if (code < 0 || code > 0xFFFF) return kNoGlyph;
  const auto sought = static_cast<std::uint32_t>(code);
  if (!index_.covers(sought)) return glyphByHalving(code);
  const ByteView starts = ByteView(bytes).from(2 * (std::uint64_t{segCount} + 1));
  const std::uint32_t segment =
      index_.candidate(sought, [starts](std::uint64_t i) { return starts.u16(2 * i); });
  if (startCode(segment) > code || endCode(segment) < code) return kNoGlyph;
  return glyphInSegment(segment, code);
}

bool CmapFormat4::mayMap(std::uint32_t block) const {
  if (block > 0xFF) return false;
  if (index_.empty()) return true;
  return index_.touches(block, [this](std::uint64_t i) { return word(segCount + 1 + i); });
}

bool CmapFormat4::startsInPrivateRange() const {
  return segCount > 0 && (startCode(0) & 0xF000) == 0xF000;
}

void CmapFormat4::makeIndex() {
  index_ = RangeIndex();
  // A pad word above the last end would make the pad answer for codes that no segment holds.
  if (segCount == 0 || word(segCount) > endCode(segCount - 1)) return;
  index_.make(
      segCount, [this](std::uint64_t i) { return word(segCount + 1 + i); },
      [this](std::uint64_t i) { return word(i); });
}

TableResult readFormat4(std::istream& stream, std::int64_t offset, CmapFormat4& out) {
  std::array<std::byte, kHeaderSize> header{};
  if (!QXCommonNS::bytes::readExact(stream, offset, header)) {
    return readFailure("'cmap' table format 4 read error");
  }
  out.length = ByteView(header).u16(2);
  out.segCount = ByteView(header).u16(6) / 2U;
  if (out.length % 2 != 0 || out.length < out.segCount * kBytesASegment + kPadSize) {
    return formatFailure("'cmap' table format length error");
  }
  // `length` bytes are asked for behind the header; those behind the subtable do not count.
  out.bytes = QXCommonNS::bytes::readBlock(stream, offset + kHeaderSize, out.length);
  const std::size_t kept = out.length < kHeaderSize ? 0 : out.length - kHeaderSize;
  if (out.bytes.size() < kept) return readFailure("'cmap' table segment read error");
  out.bytes.resize(kept);
  out.charCount = charCountOf(out);
  return {};
}

}  // namespace QXFontService_NS::cmap
