#include "embed/piece_checksum.h"

#include "common/stream/otf_checksum.h"

namespace QXFontService_NS::embed {

void PieceChecksum::add(QXCommonNS::bytes::ByteView piece) {
  std::size_t at = 0;
  for (; phase_ != 0 && at < piece.size(); ++at) {
    sum_ += std::uint32_t{piece.u8(at)} << (24 - 8 * phase_);
    phase_ = (phase_ + 1) % 4;
  }
  const auto words = piece.from(at);
  if (words.empty()) return;
  const auto* chars = static_cast<const char*>(static_cast<const void*>(words.data()));
  sum_ += QXCommonNS::stream::otfChecksum({chars, words.size()});
  phase_ = words.size() % 4;
}

}  // namespace QXFontService_NS::embed
