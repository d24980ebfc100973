#include "font/cmap/format12.h"

#include <algorithm>
#include <array>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cmap {
namespace {

using QXCommonNS::bytes::ByteView;

constexpr std::uint32_t kHeaderSize = 16;
constexpr std::uint32_t kGroupSize = 12;

/// How many codes the groups hold; damaged groups may claim more than a 32-bit count tells.
std::uint32_t charCountOf(const CmapFormat12& table) {
  const ByteView groups(table.groups);
  std::uint64_t count = 0;
  for (std::uint64_t at = 0; at < groups.size(); at += kGroupSize) {
    const std::uint64_t start = groups.u32(at);
    const std::uint64_t end = groups.u32(at + 4);
    if (start <= end) count += end - start + 1;
  }
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(count, UINT32_MAX));
}

}  // namespace

std::uint32_t CmapFormat12::startCode(std::uint64_t group) const {
  return ByteView(groups).u32(group * kGroupSize);
}

std::uint32_t CmapFormat12::endCode(std::uint64_t group) const {
  return ByteView(groups).u32(group * kGroupSize + 4);
}

std::uint16_t CmapFormat12::glyphInGroup(std::uint64_t group, std::uint32_t code) const {
  const std::uint32_t startGlyphID = ByteView(groups).u32(group * kGroupSize + 8);
  return static_cast<std::uint16_t>(startGlyphID + code - startCode(group));
}

std::uint16_t CmapFormat12::glyphByHalving(int code) const {
  if (code < 0) return kNoGlyph;
  const auto sought = static_cast<std::uint32_t>(code);
  std::int64_t low = 0;
  std::int64_t high = std::int64_t{numGroups} - 1;
  while (low <= high) {
    const std::int64_t middle = (low + high) / 2;
    const auto group = static_cast<std::uint64_t>(middle);
    if (endCode(group) < sought) {
      low = middle + 1;
    } else if (startCode(group) > sought) {
      high = middle - 1;
    } else {
      return glyphInGroup(group, sought);
    }
  }
  return kNoGlyph;
}

std::uint16_t CmapFormat12::glyph(int code) const {
  if (code < 0) return kNoGlyph;
  const auto sought = static_cast<std::uint32_t>(code);
  if (!index_.covers(sought)) return glyphByHalving(code);
  const ByteView starts(groups);
  const std::uint32_t group =
      index_.candidate(sought, [starts](std::uint64_t i) { return starts.u32(i * kGroupSize); });
  if (startCode(group) > sought || endCode(group) < sought) return kNoGlyph;
  return glyphInGroup(group, sought);
}

bool CmapFormat12::mayMap(std::uint32_t block) const {
  if (index_.empty()) return numGroups > 0;
  return index_.touches(block, [this](std::uint64_t i) { return startCode(i); });
}

bool CmapFormat12::startsInPrivateRange() const {
  return numGroups > 0 && (startCode(0) & 0xF000) == 0xF000;
}

void CmapFormat12::makeIndex() {
  index_.make(
      numGroups, [this](std::uint64_t i) { return startCode(i); },
      [this](std::uint64_t i) { return endCode(i); });
}

TableResult readFormat12(std::istream& stream, std::int64_t offset, CmapFormat12& out) {
  std::array<std::byte, kHeaderSize> header{};
  if (!QXCommonNS::bytes::readExact(stream, offset, header)) {
    return readFailure("'cmap' table format 12 read error");
  }
  out.length = ByteView(header).u32(4);
  out.numGroups = ByteView(header).u32(12);
  const std::uint64_t size = std::uint64_t{out.numGroups} * kGroupSize;
  if (std::int64_t{out.length} - kHeaderSize < static_cast<std::int64_t>(size)) {
    return formatFailure("'cmap' table format 12 length error");
  }
  out.groups = QXCommonNS::bytes::readBlock(stream, offset + kHeaderSize, size);
  if (out.groups.size() < size) return readFailure("'cmap' table group read error");
  out.charCount = charCountOf(out);
  return {};
}

}  // namespace QXFontService_NS::cmap
