#include "font/woff_reader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <vector>

#include "common/bytes/byte_view.h"
#include "common/bytes/byte_writer.h"
#include "common/bytes/stream_read.h"
#include "common/limits.h"
#include "common/zlib/inflate.h"
#include "font/directory/table_directory.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;
using QXCommonNS::bytes::readBlock;
using QXCommonNS::bytes::readExact;
using QXCommonNS::limits::kMostWoffFontBytes;
using QXCommonNS::limits::kMostWoffTableBytes;

constexpr std::uint32_t kSignature = sfnt::tagOf("wOFF");
constexpr std::uint64_t kOffsetTableSize = sfnt::OffsetTable::kSize;
constexpr std::uint64_t kRecordSize = sfnt::TableDirectory::kRecordSize;
constexpr std::uint64_t kAlignment = 4;
constexpr std::size_t kPiece = std::size_t{64} << 10;

constexpr char kInvalidHeader[] = "Invalid WOFF header.";
constexpr char kUncompress[] = "Uncompress error.";

/// The fields of the header that are looked at; its length and versions are not.
struct WoffHeader {
  static constexpr std::size_t kSize = 44;
  std::uint32_t signature = 0;
  std::uint32_t flavor = 0;
  std::uint16_t numTables = 0;
  std::uint32_t totalSfntSize = 0;  // at least that of an offset table; else a hint

  static WoffHeader decode(ByteView view) {
    return {view.u32(0), view.u32(4), view.u16(12), view.u32(16)};
  }
  [[nodiscard]] bool isValid() const {
    return signature == kSignature && totalSfntSize >= kOffsetTableSize;
  }
};

struct WoffEntry {
  static constexpr std::size_t kSize = 20;
  std::uint32_t tag = 0;
  std::uint32_t offset = 0;
  std::uint32_t compLength = 0;  // that of origLength: the table is not compressed
  std::uint32_t origLength = 0;
  std::uint32_t origChecksum = 0;

  static WoffEntry decode(ByteView view) {
    return {view.u32(0), view.u32(4), view.u32(8), view.u32(12), view.u32(16)};
  }
};

TableResult cutShort() {
  return readFailure("");
}

TableResult cannotUncompress() {
  return formatFailure(kUncompress);
}

class WoffReader {
 public:
  WoffReader(std::istream& stream, std::shared_ptr<UnpackedSfnt>& sfnt)
      : stream_(stream), sfnt_(sfnt) {}

  TableResult read() {
    if (TableResult failure = readHeader()) return failure;
    readDirectory();
    if (!isWithinLimits()) return cannotUncompress();
    writeOffsetTable();
    for (std::size_t i = 0; i < header_.numTables; ++i)
      if (TableResult failure = unpackTable(i)) return failure;
    return std::nullopt;
  }

 private:
  TableResult readHeader();
  void readDirectory();
  [[nodiscard]] bool isWithinLimits() const;
  void writeOffsetTable();
  TableResult unpackTable(std::size_t index);
  void writeRecord(std::size_t index, const WoffEntry& entry);
  template <class Take>
  bool readContent(const WoffEntry& entry, Take take);
  TableResult copyContent(const WoffEntry& entry);
  TableResult inflateContent(const WoffEntry& entry);
  std::uint64_t padContent();
  void writeAt(std::uint64_t position, ByteView bytes);

  std::istream& stream_;
  std::shared_ptr<UnpackedSfnt>& sfnt_;
  WoffHeader header_;
  std::vector<WoffEntry> entries_;  // those that are there
  std::vector<std::byte> piece_ = std::vector<std::byte>(kPiece);
  std::uint64_t dataOffset_ = 0;  // of the next table in the output
  std::uint64_t inflated_ = 0;
  std::uint64_t packed_ = 0;  // bytes read: many entries may name the same ones
};

TableResult WoffReader::readHeader() {
  std::array<std::byte, WoffHeader::kSize> bytes{};
  if (!readExact(stream_, 0, bytes)) return cutShort();
  header_ = WoffHeader::decode(ByteView(bytes));
  if (!header_.isValid()) return formatFailure(kInvalidHeader);
  sfnt_ = std::make_shared<UnpackedSfnt>(header_.totalSfntSize);
  return std::nullopt;
}

/// A directory that is cut short is told where the missing entry comes to be used.
void WoffReader::readDirectory() {
  const std::vector<std::byte> bytes =
      readBlock(stream_, WoffHeader::kSize, WoffEntry::kSize * header_.numTables);
  const ByteView view(bytes);
  for (std::uint64_t at = 0; view.contains(at, WoffEntry::kSize); at += WoffEntry::kSize)
    entries_.push_back(WoffEntry::decode(view.slice(at, WoffEntry::kSize)));
}

bool WoffReader::isWithinLimits() const {
  std::uint64_t sum = 0;
  for (const WoffEntry& entry : entries_) {
    if (entry.origLength > kMostWoffTableBytes) return false;
    sum += entry.origLength;
  }
  return sum <= kMostWoffFontBytes;
}

void WoffReader::writeOffsetTable() {
  unsigned power = header_.numTables == 0 ? 0 : 1;
  unsigned selector = 0;
  for (; power != 0 && power * 2 <= header_.numTables; power *= 2) ++selector;
  ByteWriter out;
  out.u32(header_.flavor);
  out.u16(header_.numTables);
  out.u16(static_cast<std::uint16_t>(power * 16));
  out.u16(static_cast<std::uint16_t>(selector));
  out.u16(static_cast<std::uint16_t>((header_.numTables - power) * 16));
  writeAt(0, out.view());
  dataOffset_ = kOffsetTableSize + kRecordSize * header_.numTables;
}

/// A table of its original length is taken as it is; any other length, a larger one too, is that
/// of compressed bytes. How many bytes come out is not held against the original length.
TableResult WoffReader::unpackTable(std::size_t index) {
  if (index >= entries_.size()) return cutShort();
  const WoffEntry& entry = entries_[index];
  writeRecord(index, entry);
  sfnt_->content().seekp(static_cast<std::streamoff>(dataOffset_));
  const bool isStored = entry.compLength == entry.origLength;
  if (TableResult failure = isStored ? copyContent(entry) : inflateContent(entry)) return failure;
  packed_ += entry.compLength;
  if (packed_ > kMostWoffFontBytes) return cannotUncompress();
  dataOffset_ += entry.origLength + padContent();
  return std::nullopt;
}

void WoffReader::writeRecord(std::size_t index, const WoffEntry& entry) {
  ByteWriter out;
  out.u32(entry.tag);
  out.u32(entry.origChecksum);
  out.u32(static_cast<std::uint32_t>(dataOffset_));
  out.u32(entry.origLength);
  writeAt(kOffsetTableSize + kRecordSize * index, out.view());
}

/// Hands on the bytes of a table piece by piece, so that they are not held; false where the file
/// ends before.
template <class Take>
bool WoffReader::readContent(const WoffEntry& entry, Take take) {
  for (std::uint64_t read = 0; read < entry.compLength;) {
    const std::uint64_t left = entry.compLength - read;
    const auto piece = std::span(piece_).first(std::min<std::uint64_t>(piece_.size(), left));
    if (!readExact(stream_, static_cast<std::int64_t>(entry.offset + read), piece)) return false;
    take(ByteView(piece));
    read += piece.size();
  }
  return true;
}

TableResult WoffReader::copyContent(const WoffEntry& entry) {
  const auto copy = [this](ByteView piece) {
    const void* data = piece.data();
    sfnt_->content().write(static_cast<const char*>(data),
                           static_cast<std::streamsize>(piece.size()));
  };
  return readContent(entry, copy) ? TableResult() : cutShort();
}

/// A file that is cut short says so, whatever its bytes are worth.
TableResult WoffReader::inflateContent(const WoffEntry& entry) {
  QXCommonNS::zlib::Inflater inflater(
      sfnt_->content(), std::min(kMostWoffTableBytes, kMostWoffFontBytes - inflated_));
  const bool isThere = readContent(entry, [&](ByteView piece) { inflater.write(piece); });
  inflated_ += inflater.written();
  if (!isThere) return cutShort();
  return inflater.finished() ? TableResult() : cannotUncompress();
}

/// Fills up to the next multiple of 4, and gives by how much.
std::uint64_t WoffReader::padContent() {
  constexpr std::array<std::byte, kAlignment> kZeros{};
  const auto end = static_cast<std::uint64_t>(std::streamoff(sfnt_->content().tellp()));
  const std::uint64_t count = (kAlignment - end % kAlignment) % kAlignment;
  writeAt(end, ByteView(kZeros).slice(0, count));
  return count;
}

void WoffReader::writeAt(std::uint64_t position, ByteView bytes) {
  const void* data = bytes.data();
  sfnt_->content().seekp(static_cast<std::streamoff>(position));
  sfnt_->content().write(static_cast<const char*>(data),
                         static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

TableResult unpackWoff(std::istream& stream, std::shared_ptr<UnpackedSfnt>& sfnt) {
  return WoffReader(stream, sfnt).read();
}

}  // namespace QXFontService_NS
