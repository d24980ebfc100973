#include "embed/cff/table_cursor.h"

#include "common/bytes/stream_read.h"

namespace QXFontService_NS::cff {

std::uint8_t TableCursor::u8() {
  if (used_ == held_ && !fill()) {
    failed_ = true;
    return 0;
  }
  ++position_;
  return std::to_integer<std::uint8_t>(block_[used_++]);
}

std::uint16_t TableCursor::u16() {
  const std::uint8_t high = u8();
  return static_cast<std::uint16_t>(high << 8 | u8());
}

bool TableCursor::fill() {
  used_ = 0;
  held_ = failed_ ? 0 : QXCommonNS::bytes::readUpTo(stream_, position_, block_);
  return held_ > 0;
}

}  // namespace QXFontService_NS::cff
