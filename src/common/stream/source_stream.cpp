#include "common/stream/source_stream.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "common/stream/stream_seek.h"

namespace QXCommonNS::stream {
namespace {

constexpr std::size_t kWindow = 4096;

/// What a read from the start of a source asks for: signature, directory and the small tables
/// that font files put behind it come with one call.
constexpr std::size_t kHead = 576;

/// What a read behind a seek asks for besides its own bytes: a small table and its padding. Font
/// files have `hhea` behind `head`, and `post` behind `name`.
constexpr std::size_t kTail = 40;

/// What a large read counts for the reads behind it. A whole table was asked for, which says
/// little of what comes next.
constexpr std::size_t kMostOfLargeRead = 64;

}  // namespace

SourceStreamBuf::SourceStreamBuf(std::unique_ptr<RandomSource> source)
    : source_(std::move(source)) {}

std::uint64_t SourceStreamBuf::position() const {
  return start_ + static_cast<std::uint64_t>(gptr() - eback());
}

std::size_t SourceStreamBuf::sizeOfRead(std::size_t wanted) const {
  if (position() == 0) return std::max(wanted, kHead);
  if (run_ == 0) return wanted + kTail;
  return std::max(wanted, static_cast<std::size_t>(std::min<std::uint64_t>(run_, kWindow)));
}

void SourceStreamBuf::moveTo(std::uint64_t to) {
  const auto held = static_cast<std::uint64_t>(egptr() - eback());
  if (to == position()) return;
  if (to >= start_ && to - start_ <= held) {
    setg(eback(), eback() + (to - start_), egptr());
    return;
  }
  setg(nullptr, nullptr, nullptr);
  start_ = to;
  run_ = 0;
}

std::size_t SourceStreamBuf::readHere(std::span<char> out) {
  const std::uint64_t from = position();
  if (from >= source_->size()) return 0;
  const std::size_t count = source_->readAt(from, out);
  run_ += count;
  return count;
}

bool SourceStreamBuf::fillWindow(std::size_t size) {
  if (!window_) window_ = std::make_unique_for_overwrite<char[]>(kWindow);
  const std::uint64_t from = position();
  const std::size_t count = readHere({window_.get(), size});
  start_ = from;
  setg(window_.get(), window_.get(), window_.get() + count);
  return count > 0;
}

std::size_t SourceStreamBuf::takeFromWindow(char* out, std::size_t count) {
  const std::size_t taken = std::min(count, static_cast<std::size_t>(egptr() - gptr()));
  if (taken == 0) return 0;
  std::memcpy(out, gptr(), taken);
  gbump(static_cast<int>(taken));
  return taken;
}

SourceStreamBuf::int_type SourceStreamBuf::underflow() {
  if (gptr() == egptr() && !fillWindow(sizeOfRead(1))) return traits_type::eof();
  return traits_type::to_int_type(*gptr());
}

std::streamsize SourceStreamBuf::xsgetn(char* out, std::streamsize count) {
  const auto wanted = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
  std::size_t taken = takeFromWindow(out, wanted);
  const std::size_t left = wanted - taken;
  if (left == 0) return count;
  const std::size_t size = sizeOfRead(left);
  if (left < size && size <= kWindow) {
    fillWindow(size);
    taken += takeFromWindow(out + taken, left);
  } else {
    const std::uint64_t before = run_;
    const std::size_t came = readHere({out + taken, left});
    run_ = before + std::min(came, kMostOfLargeRead);
    start_ = position() + came;
    setg(nullptr, nullptr, nullptr);
    taken += came;
  }
  return static_cast<std::streamsize>(taken);
}

SourceStreamBuf::pos_type SourceStreamBuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                   std::ios_base::openmode which) {
  if ((which & std::ios_base::in) == 0) return kNoPosition;
  const std::uint64_t from = way == std::ios_base::beg   ? 0
                             : way == std::ios_base::cur ? position()
                                                         : source_->size();
  const pos_type target = sumPosition(from, offset);
  if (target != kNoPosition) moveTo(static_cast<std::uint64_t>(std::streamoff(target)));
  return target;
}

SourceStreamBuf::pos_type SourceStreamBuf::seekpos(pos_type position,
                                                   std::ios_base::openmode which) {
  return seekoff(std::streamoff(position), std::ios_base::beg, which);
}

SourceStream::SourceStream(std::unique_ptr<RandomSource> source)
    : std::istream(nullptr), buffer_(std::move(source)) {
  rdbuf(&buffer_);
}

}  // namespace QXCommonNS::stream
