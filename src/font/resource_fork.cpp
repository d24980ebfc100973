#include "font/resource_fork.h"

#include <array>
#include <optional>

#include "common/bytes/byte_view.h"
#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "font/directory/table_directory.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::readBlock;
using QXCommonNS::bytes::readExact;

constexpr std::uint32_t kFontType = sfnt::tagOf("sfnt");
constexpr std::uint64_t kTypeEntrySize = 8;
constexpr std::uint64_t kReferenceSize = 12;
constexpr std::int64_t kTypeCountSize = 2;
constexpr std::int64_t kDataLengthSize = 4;

/// The first 16 bytes of the file. The lengths behind these fields are not looked at.
struct ForkHeader {
  static constexpr std::size_t kSize = 16;
  std::uint32_t dataOffset = 0;
  std::uint32_t mapOffset = 0;

  static ForkHeader decode(ByteView view) { return {view.u32(0), view.u32(4)}; }
};

/// The fixed part of the resource map, with the count at the head of the type list behind it:
/// for a list that stands elsewhere, this is the count all the same.
struct MapHeader {
  static constexpr std::size_t kSize = 30;
  std::uint16_t typeListOffset = 0;  // from the map
  std::uint16_t numTypes = 0;        // stored as one less, so that 0xFFFF is none

  static MapHeader decode(ByteView view) {
    return {view.u16(24), static_cast<std::uint16_t>(view.u16(28) + 1)};
  }
};

/// An entry of the type list.
struct ResourceType {
  std::uint32_t type = 0;
  std::uint32_t count = 0;          // stored as one less
  std::uint16_t refListOffset = 0;  // from the type list

  static ResourceType decode(ByteView view) {
    return {view.u32(0), std::uint32_t{view.u16(4)} + 1, view.u16(6)};
  }
};

TableResult cutShort() {
  return readFailure("");
}

TableResult noFonts() {
  return formatFailure("");
}

class ForkReader {
 public:
  explicit ForkReader(std::istream& stream) : stream_(stream) {}

  TableResult read(std::vector<std::int64_t>& offsets) {
    if (TableResult failure = readHeaders()) return failure;
    if (TableResult failure = findFonts()) return failure;
    return readReferences(offsets);
  }

 private:
  TableResult readHeaders();
  TableResult findFonts();
  TableResult readReferences(std::vector<std::int64_t>& offsets);

  std::istream& stream_;
  std::int64_t dataStart_ = 0;
  std::int64_t typeList_ = 0;
  std::uint16_t numTypes_ = 0;
  ResourceType fonts_;
};

TableResult ForkReader::readHeaders() {
  std::array<std::byte, ForkHeader::kSize> headerBytes{};
  if (!readExact(stream_, 0, headerBytes)) return cutShort();
  const auto header = ForkHeader::decode(ByteView(headerBytes));
  std::array<std::byte, MapHeader::kSize> mapBytes{};
  if (!readExact(stream_, header.mapOffset, mapBytes)) return cutShort();
  const auto map = MapHeader::decode(ByteView(mapBytes));
  dataStart_ = header.dataOffset;
  typeList_ = std::int64_t{header.mapOffset} + map.typeListOffset;
  numTypes_ = map.numTypes;
  return std::nullopt;
}

/// The first entry of the type counts. A list that is cut behind it does no harm.
TableResult ForkReader::findFonts() {
  const std::uint64_t size = kTypeEntrySize * numTypes_;
  const std::vector<std::byte> bytes = readBlock(stream_, typeList_ + kTypeCountSize, size);
  const ByteView list(bytes);
  for (std::uint64_t at = 0; list.contains(at, kTypeEntrySize); at += kTypeEntrySize) {
    fonts_ = ResourceType::decode(list.slice(at, kTypeEntrySize));
    if (fonts_.type == kFontType) return std::nullopt;
  }
  return bytes.size() < size ? cutShort() : noFonts();
}

TableResult ForkReader::readReferences(std::vector<std::int64_t>& offsets) {
  if (fonts_.count > QXCommonNS::limits::kMostFontMembers) return noFonts();
  const std::uint64_t size = kReferenceSize * fonts_.count;
  const std::vector<std::byte> bytes = readBlock(stream_, typeList_ + fonts_.refListOffset, size);
  if (bytes.size() < size) return cutShort();
  const ByteView list(bytes);
  for (std::uint64_t at = 0; at < size; at += kReferenceSize)
    offsets.push_back(dataStart_ + std::int64_t{list.u24(at + 5)} + kDataLengthSize);
  return std::nullopt;
}

}  // namespace

TableResult readFontResources(std::istream& stream, std::vector<std::int64_t>& offsets) {
  return ForkReader(stream).read(offsets);
}

}  // namespace QXFontService_NS
