#include "common/stream/otf_checksum.h"

#include "common/bytes/byte_view.h"

namespace QXCommonNS::stream {

std::uint32_t otfChecksum(std::span<const char> content) {
  const bytes::ByteView view(content.data(), content.size());
  std::uint32_t sum = 0;
  // A word half outside keeps its inner bytes.
  for (std::size_t at = 0; at < view.size(); at += 4) sum += view.u32(at);
  return sum;
}

}  // namespace QXCommonNS::stream
