#include "embed/conforming/conforming_sfnt.h"

#include <bit>
#include <limits>

#include "common/bytes/byte_view.h"
#include "common/bytes/byte_writer.h"
#include "embed/piece_checksum.h"
#include "embed/stream_copy.h"
#include "embed/table_tags.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

constexpr std::size_t kMostTables = 4095;  // so that searchRange fits its 16 bits
constexpr std::size_t kAdjustmentAt = 8;   // in `head`
constexpr std::size_t kAdjustmentSize = 4;
constexpr std::uint32_t kFontChecksum = 0xB1B0AFBA;

std::uint32_t checksum(ByteView bytes) {
  PieceChecksum sum;
  sum.add(bytes);
  return sum.value();
}

std::uint64_t roundedUp(std::uint64_t size) {
  return (size + 3) / 4 * 4;
}

std::uint64_t headerSize(std::size_t count) {
  return 12 + std::uint64_t{16} * count;
}

bool fitsSfnt(const TableBodies& tables) {
  std::uint64_t size = headerSize(tables.size());
  for (const auto& [tag, body] : tables) size += roundedUp(body.size());
  return tables.size() <= kMostTables && size <= std::numeric_limits<std::uint32_t>::max();
}

void setAdjustment(std::vector<std::byte>& head, std::uint32_t value) {
  ByteWriter field;
  field.u32(value);
  for (std::size_t i = 0; i < kAdjustmentSize; ++i)
    head[kAdjustmentAt + i] = field.view().span()[i];
}

void writeOffsetTable(std::uint32_t version, std::size_t count, ByteWriter& out) {
  const std::size_t power = std::bit_floor(count);
  out.u32(version).u16(static_cast<std::uint16_t>(count));
  out.u16(static_cast<std::uint16_t>(power * 16));
  out.u16(static_cast<std::uint16_t>(std::countr_zero(power)));
  out.u16(static_cast<std::uint16_t>((count - power) * 16));
}

/// Offset table and directory; `sum` becomes the checksum of the whole font.
ByteWriter header(std::uint32_t version, const TableBodies& tables, std::uint32_t& sum) {
  ByteWriter out;
  writeOffsetTable(version, tables.size(), out);
  std::uint64_t position = headerSize(tables.size());
  sum = 0;
  for (const auto& [tag, body] : tables) {
    const std::uint32_t ofTable = checksum(ByteView(body));
    out.u32(tag).u32(ofTable).u32(static_cast<std::uint32_t>(position));
    out.u32(static_cast<std::uint32_t>(body.size()));
    position += roundedUp(body.size());
    sum += ofTable;
  }
  sum += checksum(out.view());
  return out;
}

}  // namespace

bool writeConformingSfnt(std::uint32_t version, TableBodies tables, QXMemStream& out) {
  const auto head = tables.find(kHeadTag);
  if (head == tables.end() || head->second.size() < kAdjustmentAt + kAdjustmentSize) return false;
  if (!fitsSfnt(tables)) return false;
  setAdjustment(head->second, 0);  // checksums are made over a head without it
  std::uint32_t sum = 0;
  appendBytes(out, header(version, tables, sum).view());
  setAdjustment(head->second, kFontChecksum - sum);
  for (const auto& [tag, body] : tables) {
    appendBytes(out, ByteView(body));
    padToLong(out);
  }
  return true;
}

}  // namespace QXFontService_NS::embed::conforming
