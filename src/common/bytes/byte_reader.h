#pragma once

#include "common/bytes/byte_view.h"

namespace QXCommonNS::bytes {

/// A cursor over a `ByteView` with a latched failure: reads past the end give 0 and set `failed`,
/// so that a run of fields is read without a test each and asked about once.
class ByteReader {
 public:
  explicit ByteReader(ByteView view, std::uint64_t position = 0)
      : view_(view), position_(position) {}

  std::uint8_t u8() { return static_cast<std::uint8_t>(take(1)); }
  std::uint16_t u16() { return static_cast<std::uint16_t>(take(2)); }
  std::int16_t i16() { return static_cast<std::int16_t>(take(2)); }
  std::uint32_t u24() { return take(3); }
  std::uint32_t u32() { return take(4); }
  std::int32_t i32() { return static_cast<std::int32_t>(take(4)); }

  /// An unsigned big-endian number of 1 to 4 bytes.
  std::uint32_t unsignedOf(unsigned size) { return take(size); }

  /// The next `count` bytes; empty, with the failure latched, where fewer are left.
  ByteView bytes(std::uint64_t count) {
    if (!claim(count)) return {};
    return view_.slice(position_ - count, count);
  }
  void skip(std::uint64_t count) { claim(count); }
  void seek(std::uint64_t position) { position_ = position; }

  [[nodiscard]] std::uint64_t position() const { return position_; }
  [[nodiscard]] std::uint64_t left() const {
    return position_ < view_.size() ? view_.size() - position_ : 0;
  }
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  bool claim(std::uint64_t count) {
    if (!failed_ && view_.contains(position_, count)) {
      position_ += count;
      return true;
    }
    failed_ = true;
    return false;
  }
  std::uint32_t take(unsigned count) {
    if (!claim(count)) return 0;
    std::uint32_t value = 0;
    for (std::uint64_t at = position_ - count; at < position_; ++at)
      value = value << 8 | view_.u8(at);
    return value;
  }

  ByteView view_;
  std::uint64_t position_ = 0;
  bool failed_ = false;
};

}  // namespace QXCommonNS::bytes
