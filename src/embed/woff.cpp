#include "embed/woff.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <ostream>
#include <span>
#include <streambuf>
#include <string>
#include <vector>

#include "common/bytes/byte_view.h"
#include "common/bytes/byte_writer.h"
#include "common/bytes/stream_read.h"
#include "common/zlib/deflate.h"
#include "embed/stream_copy.h"
#include "embed/table_directory_image.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;
using QXCommonNS::bytes::readUpTo;
using Record = FS_TableDirectoryImage::Record;

constexpr std::uint32_t kSignature = 0x774F4646;  // "wOFF"
constexpr std::uint64_t kHeaderSize = 44;
constexpr std::uint64_t kEntrySize = 20;
constexpr std::uint64_t kOffsetTableSize = FS_TableDirectoryImage::kOffsetTableSize;
constexpr std::uint64_t kRecordSize = FS_TableDirectoryImage::kRecordSize;
constexpr std::size_t kPiece = std::size_t{16} << 10;
constexpr std::uint64_t kAlignment = 4;

std::uint64_t roundUp(std::uint64_t size) {
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

void writeAt(QXMemStream& out, std::uint64_t position, ByteView bytes) {
  const void* data = bytes.data();
  out.seekp(static_cast<std::streamoff>(position));
  out.write(static_cast<const char*>(data), static_cast<std::streamsize>(bytes.size()));
}

/// Takes a deflated table in the pieces in which it comes, and lets each go as it is handed on, so
/// that it is not held twice.
class DeflatedTable : public std::streambuf {
 public:
  [[nodiscard]] std::uint64_t length() const { return length_; }
  void moveTo(QXMemStream& out) {
    for (; !pieces_.empty(); pieces_.pop_front())
      out.getMemStreamBuf()->append(pieces_.front().data(), pieces_.front().size());
  }

 protected:
  std::streamsize xsputn(const char* data, std::streamsize count) override {
    pieces_.emplace_back(data, static_cast<std::size_t>(count));
    length_ += pieces_.back().size();
    return count;
  }

 private:
  std::deque<std::string> pieces_;
  std::uint64_t length_ = 0;
};

class WoffWriter {
 public:
  WoffWriter(QXMemStream& out, QXMemStream& sfnt, bool conforming)
      : out_(out), sfnt_(sfnt), conforming_(conforming) {}

  void write() {
    readOffsetTable();
    appendBytes(out_, ByteView(std::vector<std::byte>(kHeaderSize + kEntrySize * numTables_)));
    for (unsigned i = 0; i < numTables_; ++i) writeTable(i);
    writeHeader();
  }

 private:
  void readOffsetTable();
  void writeTable(unsigned index);
  std::uint64_t writeContent(const Record& record);
  void deflate(const Record& record, DeflatedTable& deflated);
  void writeEntry(unsigned index, const Record& record, std::uint64_t offset, std::uint64_t length);
  void writeHeader();

  QXMemStream& out_;
  QXMemStream& sfnt_;
  const bool conforming_;
  std::vector<std::byte> piece_ = std::vector<std::byte>(kPiece);  // of the table being packed
  FS_TableDirectoryImage::OffsetTable offsetTable_{};
  unsigned numTables_ = 0;
  std::uint64_t paddedSize_ = 0;  // of the sfnt, as the format counts it
};

void WoffWriter::readOffsetTable() {
  readUpTo(sfnt_, 0, offsetTable_);
  numTables_ = ByteView(offsetTable_).u16(4);
  paddedSize_ = kOffsetTableSize + kRecordSize * numTables_;
}

void WoffWriter::writeTable(unsigned index) {
  Record record;
  readUpTo(sfnt_, static_cast<std::int64_t>(kOffsetTableSize + kRecordSize * index), record.bytes);
  const std::uint64_t offset = out_.length();
  writeEntry(index, record, offset, writeContent(record));
  if (conforming_) padToLong(out_);
  paddedSize_ += roundUp(record.length());
}

/// What does not become shorter goes out as it is; of the deflating itself nothing is tested.
/// @return the stored length.
std::uint64_t WoffWriter::writeContent(const Record& record) {
  DeflatedTable deflated;
  deflate(record, deflated);
  if (deflated.length() >= record.length())
    return copyRange(sfnt_, record.offset(), record.length(), out_);
  deflated.moveTo(out_);
  return deflated.length();
}

/// The table piece by piece, so that no copy of it is held; as far as the stream holds it: a
/// damaged record may state any length.
void WoffWriter::deflate(const Record& record, DeflatedTable& deflated) {
  std::ostream out(&deflated);
  QXCommonNS::zlib::Deflater deflater(out);
  const std::uint64_t end = record.offset() + std::uint64_t{record.length()};
  for (std::uint64_t at = record.offset(); at < end;) {
    const std::span<std::byte> wanted(piece_.data(), std::min<std::uint64_t>(kPiece, end - at));
    const std::size_t came = readUpTo(sfnt_, static_cast<std::int64_t>(at), wanted);
    deflater.write(ByteView(wanted.first(came)));
    at = came < wanted.size() ? end : at + came;
  }
  static_cast<void>(deflater.finish());
}

void WoffWriter::writeEntry(unsigned index, const Record& record, std::uint64_t offset,
                            std::uint64_t length) {
  ByteWriter entry;
  entry.u32(record.tag());
  entry.u32(static_cast<std::uint32_t>(offset));
  entry.u32(static_cast<std::uint32_t>(length));
  entry.u32(record.length());
  entry.u32(record.checkSum());
  writeAt(out_, kHeaderSize + kEntrySize * index, entry.view());
}

void WoffWriter::writeHeader() {
  constexpr std::size_t kNoMetadataNorPrivateData = 20;
  constexpr std::uint16_t kMajorVersion = 1;
  const std::uint64_t total = conforming_ ? paddedSize_ : std::uint64_t{sfnt_.length()};
  ByteWriter header;
  header.u32(kSignature).bytes(ByteView(offsetTable_).slice(0, 4));
  header.u32(static_cast<std::uint32_t>(out_.length()));
  header.u16(static_cast<std::uint16_t>(numTables_)).u16(0);
  header.u32(static_cast<std::uint32_t>(total));
  header.u16(kMajorVersion).u16(0).zeros(kNoMetadataNorPrivateData);
  writeAt(out_, 0, header.view());
}

}  // namespace

bool writeWOFF(QXMemStream& out, QXMemStream& sfnt) {
  WoffWriter(out, sfnt, false).write();
  return true;
}

bool writeConformingWoff(QXMemStream& out, QXMemStream& sfnt) {
  WoffWriter(out, sfnt, true).write();
  return true;
}

}  // namespace QXFontService_NS::embed
