#include "common/zlib/inflate.h"

#include <limits>

#include "qxcommon/util.h"

#include "common/limits.h"

namespace QXCommonNS {
namespace zlib {
namespace {

/// What comes out in one call; zlib copies its window of 32 KB at the end of each.
constexpr std::size_t kPiece = std::size_t{64} << 10;
constexpr std::size_t kMostInput = std::numeric_limits<uInt>::max();

}  // namespace

Inflater::Inflater(std::ostream& out, std::uint64_t most)
    : out_(out),
      piece_(std::make_unique_for_overwrite<char[]>(kPiece)),
      most_(most),
      good_(inflateInit(&state_) == Z_OK) {}

Inflater::~Inflater() {
  inflateEnd(&state_);
}

bool Inflater::write(bytes::ByteView data) {
  for (std::size_t at = 0; good_ && !finished_ && at < data.size(); at += kMostInput)
    good_ = run(data.slice(at, kMostInput));
  return good_;
}

bool Inflater::run(bytes::ByteView data) {
  // zlib's interface takes its input without const, and leaves it alone.
  state_.next_in = static_cast<Bytef*>(const_cast<void*>(static_cast<const void*>(data.data())));
  state_.avail_in = static_cast<uInt>(data.size());
  do {
    if (!takePiece()) return false;
  } while (!finished_ && state_.avail_out == 0);
  return true;
}

bool Inflater::takePiece() {
  state_.next_out = static_cast<Bytef*>(static_cast<void*>(piece_.get()));
  state_.avail_out = static_cast<uInt>(kPiece);
  const int result = inflate(&state_, Z_NO_FLUSH);
  // No progress is no fault: the data goes on in the next call, or is cut short.
  if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) return false;
  finished_ = result == Z_STREAM_END;
  const std::uint64_t came = kPiece - state_.avail_out;
  if (came > most_ - written_) return false;
  out_.write(piece_.get(), static_cast<std::streamsize>(came));
  written_ += came;
  return static_cast<bool>(out_);
}

bool inflateBounded(std::ostream& out, const unsigned char* data, std::size_t size,
                    std::uint64_t most) {
  Inflater inflater(out, most);
  return inflater.write(bytes::ByteView(data, size)) && inflater.finished();
}

}  // namespace zlib

bool QXUtil::inflate(std::ostream& out, const unsigned char* data, unsigned size) {
  return zlib::inflateBounded(out, data, size, limits::kMostInflatedBytes);
}

}  // namespace QXCommonNS
