#include "qxcommon/mem_stream_buf.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "common/limits.h"
#include "common/stream/stream_seek.h"

// Positions, areas, reading and writing; the source and the blocks stand in mem_stream_blocks.cpp,
// searching in mem_stream_search.cpp.
namespace QXCommonNS {
namespace {

constexpr std::size_t kLeastBlock = std::size_t{1} << 10;
constexpr std::size_t kMostBlock = std::size_t{1} << 20;

// The hint may be a damaged file's word.
std::size_t saneBlockSize(std::size_t hint) {
  return std::bit_ceil(std::clamp(hint, kLeastBlock, kMostBlock));
}

std::size_t atMost(std::size_t count, std::ptrdiff_t room) {
  return std::min(count, static_cast<std::size_t>(room));
}

}  // namespace

QXMemStreamBuf::QXMemStreamBuf(std::istream* source, std::size_t blockSize, bool own, bool keep)
    : blockSize_(saneBlockSize(blockSize)), blockBits_(std::countr_zero(blockSize_)), keep_(keep) {
  setSource(source, own);
}

QXMemStreamBuf::~QXMemStreamBuf() = default;

void QXMemStreamBuf::setKeepMemory(bool keep) {
  keep_ = keep;
  if (keep_) return;
  const std::size_t reading = eback() != nullptr ? indexOf(getStart_) : blocks_.size();
  for (std::size_t i = 0; i < blocks_.size(); ++i) {
    if (i != reading) release(i);
  }
}

std::size_t QXMemStreamBuf::length() {
  noteWritten();
  trySource();
  pullTo(limits::kMostStreamBytes);
  return knownEnd();
}

std::uint64_t QXMemStreamBuf::getPosition() const {
  return getStart_ + static_cast<std::uint64_t>(gptr() - eback());
}

std::uint64_t QXMemStreamBuf::putPosition() {
  if (putAtEnd_) return length();
  return putStart_ + static_cast<std::uint64_t>(pptr() - pbase());
}

void QXMemStreamBuf::setGetPosition(std::uint64_t position) {
  const auto held = static_cast<std::uint64_t>(egptr() - eback());
  if (position >= getStart_ && position - getStart_ <= held) {
    setg(eback(), eback() + (position - getStart_), egptr());
    return;
  }
  leaveGetArea(position);
}

void QXMemStreamBuf::leaveGetArea(std::uint64_t position) {
  const bool leavesBlock = eback() != nullptr && indexOf(position) != indexOf(getStart_);
  if (leavesBlock && !keep_) release(indexOf(getStart_));
  setg(nullptr, nullptr, nullptr);
  getStart_ = position;
}

void QXMemStreamBuf::setPutPosition(std::uint64_t position) {
  noteWritten();
  setp(nullptr, nullptr);
  putStart_ = position;
  putAtEnd_ = false;
}

// What was written through the put area counts once its end is looked at.
void QXMemStreamBuf::noteWritten() {
  if (pptr() == nullptr) return;
  heldEnd_ = std::max(heldEnd_, putStart_ + static_cast<std::uint64_t>(pptr() - pbase()));
}

// The area is the whole block around the get position, as far as there is content.
bool QXMemStreamBuf::openGetArea() {
  const std::uint64_t position = getPosition();
  noteWritten();
  trySource();
  pullTo(position + 1);
  if (position >= knownEnd()) return false;
  leaveGetArea(position);
  const std::size_t index = indexOf(position);
  char* block = blockAt(index);
  const std::uint64_t start = std::uint64_t{index} * blockSize_;
  const std::uint64_t end = std::min<std::uint64_t>(knownEnd(), start + blockSize_);
  if (position >= end) return false;  // the source gave less than it had
  getStart_ = start;
  setg(block, block + (position - start), block + (end - start));
  return true;
}

bool QXMemStreamBuf::openPutArea() {
  const std::uint64_t position = putPosition();
  if (position >= limits::kMostStreamBytes) return false;
  noteWritten();
  trySource();
  pullTo(limits::kMostStreamBytes);  // what comes late must not land on what is written now
  const std::size_t index = indexOf(position);
  char* block = blockAt(index);
  blocks_[index].written = true;
  setp(block + offsetIn(position), block + blockSize_);
  putStart_ = position;
  putAtEnd_ = false;
  return true;
}

QXMemStreamBuf::int_type QXMemStreamBuf::underflow() {
  if (gptr() == egptr() && !openGetArea()) return traits_type::eof();
  return traits_type::to_int_type(*gptr());
}

QXMemStreamBuf::int_type QXMemStreamBuf::pbackfail(int_type character) {
  const std::uint64_t position = getPosition();
  if (position == 0) return traits_type::eof();
  setGetPosition(position - 1);
  const bool wanted = traits_type::eq_int_type(character, traits_type::eof()) ||
                      traits_type::eq_int_type(character, sgetc());
  if (wanted) return traits_type::not_eof(character);
  setGetPosition(position);
  return traits_type::eof();
}

std::streamsize QXMemStreamBuf::xsgetn(char* out, std::streamsize count) {
  const auto wanted = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
  std::size_t done = 0;
  while (done < wanted) {
    const std::size_t taken = atMost(wanted - done, egptr() - gptr());
    if (taken > 0) {
      std::memcpy(out + done, gptr(), taken);
      gbump(static_cast<int>(taken));
      done += taken;
      continue;
    }
    const std::size_t direct = readPastBlocks(out + done, wanted - done);
    done += direct;
    if (direct == 0 && !openGetArea()) break;
  }
  return static_cast<std::streamsize>(done);
}

QXMemStreamBuf::int_type QXMemStreamBuf::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof()))
    return traits_type::not_eof(character);
  if (pptr() == epptr() && !openPutArea()) return traits_type::eof();
  *pptr() = traits_type::to_char_type(character);
  pbump(1);
  return character;
}

std::streamsize QXMemStreamBuf::xsputn(const char* data, std::streamsize count) {
  const auto wanted = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
  std::size_t done = 0;
  while (done < wanted) {
    if (pptr() == epptr() && !openPutArea()) break;
    const std::size_t taken = atMost(wanted - done, epptr() - pptr());
    std::memcpy(pptr(), data + done, taken);
    pbump(static_cast<int>(taken));
    done += taken;
  }
  return static_cast<std::streamsize>(done);
}

std::size_t QXMemStreamBuf::append(const char* data, std::size_t count) {
  setPutPosition(length());
  return static_cast<std::size_t>(xsputn(data, static_cast<std::streamsize>(count)));
}

std::size_t QXMemStreamBuf::copyStream(std::istream& from, std::size_t count) {
  setPutPosition(length());
  std::size_t done = 0;
  while (done < count) {
    if (pptr() == epptr() && !openPutArea()) break;
    const std::size_t wanted = atMost(count - done, epptr() - pptr());
    from.read(pptr(), static_cast<std::streamsize>(wanted));
    const auto came = static_cast<std::size_t>(from.gcount());
    pbump(static_cast<int>(came));
    done += came;
    if (came < wanted) break;
  }
  return done;
}

QXMemStreamBuf::pos_type QXMemStreamBuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                 std::ios_base::openmode which) {
  const bool get = (which & std::ios_base::in) != 0;
  const bool put = (which & std::ios_base::out) != 0;
  const bool current = way == std::ios_base::cur;
  if (get == put && (current || !get)) return stream::kNoPosition;  // there are two of them
  std::uint64_t from = 0;
  if (current) from = get ? getPosition() : putPosition();
  if (way == std::ios_base::end) from = length();
  const pos_type target = stream::sumPosition(from, offset);
  if (target == stream::kNoPosition) return target;
  const auto position = static_cast<std::uint64_t>(std::streamoff(target));
  if (get) setGetPosition(position);
  if (put && !(current && offset == 0)) setPutPosition(position);
  return target;
}

QXMemStreamBuf::pos_type QXMemStreamBuf::seekpos(pos_type position, std::ios_base::openmode which) {
  return seekoff(std::streamoff(position), std::ios_base::beg, which);
}

}  // namespace QXCommonNS
