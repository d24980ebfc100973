#include "common/zlib/deflate.h"

#include <algorithm>
#include <array>
#include <limits>

#include "qxcommon/util.h"

namespace QXCommonNS {
namespace zlib {
namespace {

constexpr int kLevel = 6;
constexpr std::size_t kPiece = std::size_t{16} << 10;
constexpr std::size_t kMostInput = std::numeric_limits<uInt>::max();

}  // namespace

Deflater::Deflater(std::ostream& out) : out_(out), good_(deflateInit(&state_, kLevel) == Z_OK) {}

Deflater::~Deflater() {
  deflateEnd(&state_);
}

bool Deflater::write(bytes::ByteView data) {
  for (std::size_t at = 0; good_ && at < data.size(); at += kMostInput)
    good_ = run(data.slice(at, kMostInput), Z_NO_FLUSH);
  return good_;
}

bool Deflater::finish() {
  good_ = good_ && run({}, Z_FINISH);
  return good_;
}

bool Deflater::run(bytes::ByteView data, int flush) {
  // zlib's interface takes its input without const, and leaves it alone.
  state_.next_in = static_cast<Bytef*>(const_cast<void*>(static_cast<const void*>(data.data())));
  state_.avail_in = static_cast<uInt>(data.size());
  return drain(flush);
}

bool Deflater::drain(int flush) {
  std::array<char, kPiece> piece;
  do {
    state_.next_out = static_cast<Bytef*>(static_cast<void*>(piece.data()));
    state_.avail_out = static_cast<uInt>(piece.size());
    if (deflate(&state_, flush) == Z_STREAM_ERROR) return false;
    out_.write(piece.data(), static_cast<std::streamsize>(piece.size() - state_.avail_out));
    if (!out_) return false;
  } while (state_.avail_out == 0);
  return true;
}

}  // namespace zlib

bool QXUtil::deflate(std::ostream& out, const unsigned char* data, unsigned size) {
  zlib::Deflater deflater(out);
  return deflater.write(bytes::ByteView(data, size)) && deflater.finish();
}

}  // namespace QXCommonNS
