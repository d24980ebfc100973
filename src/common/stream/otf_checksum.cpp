#include "common/stream/otf_checksum.h"

#include <array>
#include <cstring>

#include "common/bytes/byte_view.h"

namespace QXCommonNS::stream {
namespace {

// Whole words only, without a test each: each table that is written is summed.
std::uint32_t wordOf(const char* bytes) {
  std::array<unsigned char, 4> word;
  std::memcpy(word.data(), bytes, word.size());
  return std::uint32_t{word[0]} << 24 | std::uint32_t{word[1]} << 16 | std::uint32_t{word[2]} << 8 |
         std::uint32_t{word[3]};
}

}  // namespace

std::uint32_t otfChecksum(std::span<const char> content) {
  const std::size_t whole = content.size() / 4 * 4;
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < whole; at += 4) sum += wordOf(content.data() + at);
  // A word half outside keeps its inner bytes.
  return sum + bytes::ByteView(content.data(), content.size()).u32(whole);
}

}  // namespace QXCommonNS::stream
