#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>

namespace QXFontService_NS::cff {

/// Reads a run of small big-endian fields whose length shows only on the way. Bytes are fetched in
/// blocks, so that a field costs no seek. A read past the end gives 0 and latches `failed`.
class TableCursor {
 public:
  TableCursor(std::istream& stream, std::int64_t position) : stream_(stream), position_(position) {}

  std::uint8_t u8();
  std::uint16_t u16();

  [[nodiscard]] bool failed() const { return failed_; }
  /// The stream position of the next byte.
  [[nodiscard]] std::int64_t position() const { return position_; }

 private:
  bool fill();

  std::istream& stream_;
  std::int64_t position_;
  std::array<std::byte, 256> block_{};
  std::size_t used_ = 0;
  std::size_t held_ = 0;
  bool failed_ = false;
};

}  // namespace QXFontService_NS::cff
