#include "common/bytes/stream_read.h"

#include <algorithm>

namespace QXCommonNS::bytes {
namespace {

constexpr std::uint64_t kFirstChunk = std::uint64_t{64} * 1024;

bool seekTo(std::istream& stream, std::int64_t offset) {
  if (offset < 0) return false;
  stream.clear();
  return static_cast<bool>(stream.seekg(offset));
}

std::size_t readHere(std::istream& stream, std::span<std::byte> out) {
  // The stream speaks of chars, the rest of the code of bytes: the one cast between them.
  stream.read(static_cast<char*>(static_cast<void*>(out.data())),
              static_cast<std::streamsize>(out.size()));
  const auto count = static_cast<std::size_t>(stream.gcount());
  stream.clear();
  return count;
}

}  // namespace

std::size_t readUpTo(std::istream& stream, std::int64_t offset, std::span<std::byte> out) {
  if (!seekTo(stream, offset)) {
    stream.clear();
    return 0;
  }
  return readHere(stream, out);
}

bool readExact(std::istream& stream, std::int64_t offset, std::span<std::byte> out) {
  return readUpTo(stream, offset, out) == out.size();
}

std::vector<std::byte> readBlock(std::istream& stream, std::int64_t offset, std::uint64_t count) {
  std::vector<std::byte> data;
  std::uint64_t chunk = kFirstChunk;
  while (data.size() < count) {
    const std::size_t before = data.size();
    const std::uint64_t wanted = std::min(chunk, count - before);
    data.resize(before + wanted);
    const std::size_t came = readUpTo(stream, offset + static_cast<std::int64_t>(before),
                                      std::span(data).subspan(before));
    if (came < wanted) {
      data.resize(before + came);
      break;
    }
    chunk *= 2;
  }
  return data;
}

}  // namespace QXCommonNS::bytes
