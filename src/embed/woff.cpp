#include "embed/woff.h"

#include <array>
#include <cstdint>
#include <vector>

#include "qxcommon/util.h"

#include "common/bytes/byte_view.h"
#include "common/bytes/byte_writer.h"
#include "common/bytes/stream_read.h"
#include "embed/stream_copy.h"
#include "embed/table_directory_image.h"

namespace QXFontService_NS::embed {
namespace {

using QXCommonNS::QXMemStream;
using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;
using QXCommonNS::bytes::readBlock;
using QXCommonNS::bytes::readUpTo;
using Record = FS_TableDirectoryImage::Record;

constexpr std::uint32_t kSignature = 0x774F4646;  // "wOFF"
constexpr std::uint64_t kHeaderSize = 44;
constexpr std::uint64_t kEntrySize = 20;
constexpr std::uint64_t kOffsetTableSize = FS_TableDirectoryImage::kOffsetTableSize;
constexpr std::uint64_t kRecordSize = FS_TableDirectoryImage::kRecordSize;
constexpr std::size_t kBlockSize = 8192;
constexpr std::uint64_t kAlignment = 4;

std::uint64_t roundUp(std::uint64_t size) {
  return (size + kAlignment - 1) / kAlignment * kAlignment;
}

void writeAt(QXMemStream& out, std::uint64_t position, ByteView bytes) {
  const void* data = bytes.data();
  out.seekp(static_cast<std::streamoff>(position));
  out.write(static_cast<const char*>(data), static_cast<std::streamsize>(bytes.size()));
}

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
  void readTable(const Record& record);
  std::uint64_t writeContent(std::uint64_t length);
  void writeEntry(unsigned index, const Record& record, std::uint64_t offset, std::uint64_t length);
  void writeHeader();

  QXMemStream& out_;
  QXMemStream& sfnt_;
  const bool conforming_;
  std::vector<std::byte> table_;  // that is being written
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
  readTable(record);
  writeEntry(index, record, offset, writeContent(record.length()));
  if (conforming_) padToLong(out_);
  paddedSize_ += roundUp(record.length());
}

/// The table as far as the stream holds it: a damaged record may state any length.
void WoffWriter::readTable(const Record& record) {
  table_ = readBlock(sfnt_, record.offset(), record.length());
}

/// What does not become shorter goes out as it is; of the deflating itself nothing is tested.
/// @param length of the table as its record states it.
/// @return the stored length.
std::uint64_t WoffWriter::writeContent(std::uint64_t length) {
  QXMemStream deflated(nullptr, kBlockSize, false, true);
  const void* data = table_.data();
  QXCommonNS::QXUtil::deflate(deflated, static_cast<const unsigned char*>(data),
                              static_cast<unsigned>(table_.size()));
  if (deflated.length() < length) return copyRange(deflated, 0, deflated.length(), out_);
  appendBytes(out_, ByteView(table_));
  return table_.size();
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
