#include "embed/cff/index.h"

#include <array>
#include <span>

#include "common/bytes/byte_reader.h"
#include "common/bytes/stream_read.h"

namespace QXFontService_NS {

using QXCommonNS::bytes::ByteReader;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::readBlock;
using QXCommonNS::bytes::readExact;

std::uint32_t FS_CFFIndexHeader::getOffset(unsigned int i) const {
  return ByteReader(ByteView(offsets), std::uint64_t{i} * offSize).unsignedOf(offSize);
}

std::int64_t FS_CFFIndexHeader::dataSize() const {
  return count == 0 ? 0 : std::int64_t{getOffset(count)} - 1;
}

bool FS_CFFIndexHeader::locate(unsigned int i, std::int64_t& position, std::uint32_t& size) const {
  if (i >= count) return false;
  const std::uint32_t first = getOffset(i);
  const std::uint32_t next = getOffset(i + 1);
  if (first == 0 || next < first) return false;
  position = dataPosition + first - 1;
  size = next - first;
  return true;
}

namespace cff {
namespace {

bool readOffsetArray(std::istream& stream, std::int64_t position, FS_CFFIndexHeader& out) {
  std::array<std::byte, 1> size{};
  if (!readExact(stream, position, size)) return false;
  out.offSize = std::to_integer<unsigned>(size[0]);
  if (out.offSize < 1 || out.offSize > 4) return false;
  const std::uint64_t wanted = (std::uint64_t{out.count} + 1) * out.offSize;
  out.offsets = readBlock(stream, position + 1, wanted);
  out.dataPosition = position + 1 + static_cast<std::int64_t>(wanted);
  return out.offsets.size() == wanted;
}

}  // namespace

bool readIndexHeader(std::istream& stream, std::int64_t position, FS_CFFIndexHeader& out) {
  out = {};
  std::array<std::byte, 2> count{};
  if (!readExact(stream, position, count)) return false;
  out.count = ByteView(count).u16(0);
  out.dataPosition = position + 2;
  return out.count == 0 || readOffsetArray(stream, out.dataPosition, out);
}

bool readCFFIndexHeader(const CffTable& table, std::int64_t offset, FS_CFFIndexHeader& out) {
  if (!table.exists() || offset <= 0) return false;
  return readIndexHeader(*table.stream, table.at(offset), out);
}

bool readCFFIndexEntry(const FS_CFFIndexHeader& header, std::istream& stream, unsigned int entry,
                       FS_CFFBytes& out) {
  std::int64_t position = 0;
  std::uint32_t size = 0;
  if (!header.locate(entry, position, size)) return false;
  const std::vector<std::byte> data = readBlock(stream, position, size);
  out.assign(static_cast<const char*>(static_cast<const void*>(data.data())), data.size());
  return data.size() == size;
}

bool readIndexEntries(const FS_CFFIndexHeader& header, std::istream& stream, FS_CFFStrings& out) {
  out.clear();
  if (header.count == 0) return true;
  const std::int64_t wanted = header.dataSize();
  if (wanted < 0) return false;
  const auto data = readBlock(stream, header.dataPosition, static_cast<std::uint64_t>(wanted));
  const auto* text = static_cast<const char*>(static_cast<const void*>(data.data()));
  out.reserve(header.count);
  for (unsigned int i = 0; i < header.count; ++i) {
    std::int64_t position = 0;
    std::uint32_t size = 0;
    if (!header.locate(i, position, size)) return false;
    const auto from = static_cast<std::uint64_t>(position - header.dataPosition);
    if (!ByteView(data).contains(from, size)) return false;
    out.emplace_back(text + from, size);
  }
  return true;
}

bool skipIndex(std::istream& stream, std::int64_t& position) {
  FS_CFFIndexHeader header;
  if (!readIndexHeader(stream, position, header)) return false;
  if (header.dataSize() < 0) return false;
  position = header.endPosition();
  return true;
}

}  // namespace cff
}  // namespace QXFontService_NS
