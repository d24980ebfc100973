#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace QXCommonNS::bytes {

/// A read-only view of big-endian font data: the only code that does offset arithmetic on it.
///
/// Two policies stand side by side. The *strict* operations (`tryU16`, `trySlice`) serve files:
/// a read that does not fit is an answer of its own. The *total* ones (`u16`, `slice`) serve
/// tables whose offsets are taken on trust: any byte outside reads as 0 and a slice outside is
/// empty, so that no offset reaches foreign memory and no sound font changes its answer.
///
/// Offsets are 64 bits wide, so that sums of 32-bit file numbers do not wrap.
class ByteView {
 public:
  constexpr ByteView() = default;
  constexpr explicit ByteView(std::span<const std::byte> bytes) : bytes_(bytes) {}
  ByteView(const void* data, std::size_t size)
      : bytes_(static_cast<const std::byte*>(data), size) {}

  [[nodiscard]] constexpr std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] constexpr bool empty() const { return bytes_.empty(); }
  [[nodiscard]] constexpr const std::byte* data() const { return bytes_.data(); }
  [[nodiscard]] constexpr std::span<const std::byte> span() const { return bytes_; }

  /// Whether `count` bytes stand at `offset`.
  [[nodiscard]] constexpr bool contains(std::uint64_t offset, std::uint64_t count) const {
    return count <= bytes_.size() && offset <= bytes_.size() - count;
  }

  // Strict: nothing where the read does not fit.
  [[nodiscard]] constexpr std::optional<std::uint8_t> tryU8(std::uint64_t offset) const {
    if (!contains(offset, 1)) return std::nullopt;
    return byteAt(offset);
  }
  [[nodiscard]] constexpr std::optional<std::uint16_t> tryU16(std::uint64_t offset) const {
    if (!contains(offset, 2)) return std::nullopt;
    return wordAt(offset);
  }
  [[nodiscard]] constexpr std::optional<std::uint32_t> tryU32(std::uint64_t offset) const {
    if (!contains(offset, 4)) return std::nullopt;
    return longAt(offset);
  }
  [[nodiscard]] constexpr std::optional<ByteView> trySlice(std::uint64_t offset,
                                                           std::uint64_t count) const {
    if (!contains(offset, count)) return std::nullopt;
    return ByteView(bytes_.subspan(offset, count));
  }

  // Total: 0 for each byte outside, so a word half inside keeps its inner byte.
  [[nodiscard]] constexpr std::uint8_t u8(std::uint64_t offset) const {
    return offset < bytes_.size() ? byteAt(offset) : std::uint8_t{0};
  }
  [[nodiscard]] constexpr std::uint16_t u16(std::uint64_t offset) const {
    if (contains(offset, 2)) return wordAt(offset);
    if (offset >= bytes_.size()) return 0;  // offset + 1 must not wrap
    return static_cast<std::uint16_t>(u8(offset) << 8 | u8(offset + 1));
  }
  [[nodiscard]] constexpr std::int16_t i16(std::uint64_t offset) const {
    return static_cast<std::int16_t>(u16(offset));
  }
  [[nodiscard]] constexpr std::uint32_t u24(std::uint64_t offset) const {
    if (offset >= bytes_.size()) return 0;
    return std::uint32_t{u16(offset)} << 8 | u8(offset + 2);
  }
  [[nodiscard]] constexpr std::uint32_t u32(std::uint64_t offset) const {
    if (contains(offset, 4)) return longAt(offset);
    if (offset >= bytes_.size()) return 0;
    return std::uint32_t{u16(offset)} << 16 | u16(offset + 2);
  }
  [[nodiscard]] constexpr std::int32_t i32(std::uint64_t offset) const {
    return static_cast<std::int32_t>(u32(offset));
  }

  /// The bytes from `offset` on, at most `count`; clipped to what is there.
  [[nodiscard]] constexpr ByteView slice(std::uint64_t offset, std::uint64_t count) const {
    if (offset >= bytes_.size()) return {};
    const std::uint64_t left = bytes_.size() - offset;
    return ByteView(bytes_.subspan(offset, count < left ? count : left));
  }
  /// Decodes the words from the start into `out`, without a check a word: their number is held
  /// against the view first. What does not fit is 0.
  constexpr void words(std::span<char16_t> out) const {
    const std::size_t whole = out.size() < size() / 2 ? out.size() : size() / 2;
    for (std::size_t i = 0; i < whole; ++i) out[i] = wordAt(2 * i);
    for (std::size_t i = whole; i < out.size(); ++i) out[i] = 0;
  }

  /// The bytes from `offset` to the end; empty from the end on.
  [[nodiscard]] constexpr ByteView from(std::uint64_t offset) const {
    return slice(offset, bytes_.size());
  }

 private:
  [[nodiscard]] constexpr std::uint8_t byteAt(std::uint64_t offset) const {
    return std::to_integer<std::uint8_t>(bytes_[offset]);
  }
  [[nodiscard]] constexpr std::uint16_t wordAt(std::uint64_t offset) const {
    return static_cast<std::uint16_t>(byteAt(offset) << 8 | byteAt(offset + 1));
  }
  [[nodiscard]] constexpr std::uint32_t longAt(std::uint64_t offset) const {
    return std::uint32_t{wordAt(offset)} << 16 | wordAt(offset + 2);
  }

  std::span<const std::byte> bytes_;
};

}  // namespace QXCommonNS::bytes
