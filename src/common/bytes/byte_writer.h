#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "common/bytes/byte_view.h"

namespace QXCommonNS::bytes {

/// Builds big-endian data in memory. Fields whose value is known only later are written as
/// patches: `auto length = out.patchU32(); ... out.set(length, out.size());`
class ByteWriter {
 public:
  template <class Number>
  struct Patch {
    std::size_t position;
  };

  ByteWriter& u8(std::uint8_t value);
  ByteWriter& u16(std::uint16_t value);
  ByteWriter& u24(std::uint32_t value);
  ByteWriter& u32(std::uint32_t value);
  ByteWriter& bytes(ByteView view);
  ByteWriter& text(std::string_view text);
  ByteWriter& zeros(std::size_t count);
  /// Zero bytes up to a multiple of `unit`.
  ByteWriter& align(std::size_t unit);

  [[nodiscard]] Patch<std::uint16_t> patchU16();
  [[nodiscard]] Patch<std::uint32_t> patchU32();
  void set(Patch<std::uint16_t> patch, std::uint16_t value);
  void set(Patch<std::uint32_t> patch, std::uint32_t value);

  [[nodiscard]] std::size_t size() const { return data_.size(); }
  [[nodiscard]] ByteView view() const { return ByteView(data_); }
  [[nodiscard]] std::vector<std::byte> take() { return std::move(data_); }

 private:
  std::vector<std::byte> data_;
};

}  // namespace QXCommonNS::bytes
