#include "embed/cff_subset_index.h"

#include <algorithm>
#include <span>

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::embed {

using QXCommonNS::bytes::ByteView;
using QXCommonNS::bytes::ByteWriter;

namespace {

constexpr std::int64_t kPiece = 64 * 1024;
constexpr std::uint64_t kMostFillerData = std::uint64_t{1} << 30;

unsigned offSizeFor(std::uint64_t value, std::uint64_t two) {
  return 1U + (value >= two) + (value >= 65535) + (value >= 0xFFFFFF);
}

}  // namespace

unsigned topDictOffSize(std::uint64_t lastOffset) {
  return offSizeFor(lastOffset, 256);
}

unsigned charStringsOffSize(std::uint64_t dataLength) {
  return offSizeFor(dataLength, 255);
}

void writeOffset(ByteWriter& out, std::uint32_t value, unsigned size) {
  for (unsigned i = size; i-- > 0;) out.u8(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::int64_t copyBytes(std::istream& stream, std::int64_t position, std::int64_t count,
                       ByteWriter& out) {
  std::vector<std::byte> piece(static_cast<std::size_t>(std::clamp(count, INT64_C(0), kPiece)));
  std::int64_t copied = 0;
  while (copied < count) {
    const auto wanted = static_cast<std::size_t>(std::min(count - copied, kPiece));
    const std::span<std::byte> part = std::span(piece).first(wanted);
    const std::size_t came = QXCommonNS::bytes::readUpTo(stream, position + copied, part);
    out.bytes(ByteView(part.first(came)));
    copied += static_cast<std::int64_t>(came);
    if (came < wanted) break;
  }
  return copied;
}

bool copyExactly(std::istream& stream, std::int64_t position, std::int64_t count, ByteWriter& out) {
  return count >= 0 && copyBytes(stream, position, count, out) == count;
}

bool copyCFFIndex(std::istream& stream, std::int64_t& position, ByteWriter& out) {
  FS_CFFIndexHeader header;
  if (!cff::readIndexHeader(stream, position, header) || header.dataSize() < 0) return false;
  if (!copyExactly(stream, position, header.endPosition() - position, out)) return false;
  position = header.endPosition();
  return true;
}

void writeTo(QXCommonNS::QXMemStream& out, const ByteWriter& bytes) {
  const ByteView view = bytes.view();
  out.write(static_cast<const char*>(static_cast<const void*>(view.data())),
            static_cast<std::streamsize>(view.size()));
}

bool CharStringsBuilder::add(unsigned glyph) {
  std::int64_t position = 0;
  std::uint32_t size = 0;
  if (!source_.locate(glyph, position, size) || size > budget_) return false;
  budget_ -= size;
  if (!append(position, size)) return false;
  ends_.push_back(static_cast<std::uint32_t>(data_.size()));
  return true;
}

// Small entries are read straight into place; the size of a large one may be a damaged word.
bool CharStringsBuilder::append(std::int64_t position, std::uint32_t size) {
  const std::size_t before = data_.size();
  if (size <= kPiece) {
    data_.resize(before + size);
    return QXCommonNS::bytes::readExact(stream_, position, std::span(data_).subspan(before));
  }
  const auto block = QXCommonNS::bytes::readBlock(stream_, position, size);
  data_.insert(data_.end(), block.begin(), block.end());
  return block.size() == size;
}

bool CharStringsBuilder::addFiller(const FS_CFFBytes& charString, unsigned copies) {
  const std::uint64_t total = data_.size() + std::uint64_t{charString.size()} * copies;
  if (total > kMostFillerData) return false;
  const ByteView bytes(charString.data(), charString.size());
  for (unsigned i = 0; i < copies; ++i) {
    data_.insert(data_.end(), bytes.span().begin(), bytes.span().end());
    ends_.push_back(static_cast<std::uint32_t>(data_.size()));
  }
  return true;
}

void CharStringsBuilder::repeat(std::size_t number) {
  const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
  const std::vector<std::byte> copy(data_.begin() + static_cast<std::ptrdiff_t>(begin),
                                    data_.begin() + static_cast<std::ptrdiff_t>(ends_[number]));
  data_.insert(data_.end(), copy.begin(), copy.end());
  ends_.push_back(static_cast<std::uint32_t>(data_.size()));
}

void CharStringsBuilder::write(ByteWriter& out) const {
  const unsigned offSize = charStringsOffSize(data_.size());
  out.u16(static_cast<std::uint16_t>(ends_.size())).u8(static_cast<std::uint8_t>(offSize));
  writeOffset(out, 1, offSize);
  for (const std::uint32_t end : ends_) writeOffset(out, end + 1, offSize);
  out.bytes(ByteView(data_));
}

}  // namespace QXFontService_NS::embed
