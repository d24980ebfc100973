#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace QXFontService_NS {

/// The end-user-defined code points: one bit for each of U+0000 to U+FFFF.
class EudcSet {
 public:
  [[nodiscard]] bool contains(int codePoint) const {
    return codePoint >= 0 && codePoint < kSize &&
           (bits_[byteOf(codePoint)] & bitOf(codePoint)) != 0;
  }

  /// Sets the code points of `first` to `last` inclusive that lie in the set's range. The
  /// numbers come from configurations and registries: they are cut to the range, never clamped
  /// into it, so a range outside sets nothing.
  void add(std::int64_t first, std::int64_t last) {
    const std::int64_t begin = first < 0 ? 0 : first;
    const std::int64_t end = last < kSize ? last : kSize - 1;
    for (std::int64_t code = begin; code <= end;) {
      std::uint8_t& byte = bits_[byteOf(static_cast<int>(code))];
      const bool whole = code % 8 == 0 && code + 7 <= end;
      byte = whole ? std::uint8_t{0xFF}
                   : static_cast<std::uint8_t>(byte | bitOf(static_cast<int>(code)));
      code += whole ? 8 : 1;
    }
  }

  void clear() { bits_.fill(0); }

 private:
  static constexpr int kSize = 0x10000;
  static constexpr std::size_t byteOf(int code) { return static_cast<std::size_t>(code >> 3); }
  static constexpr std::uint8_t bitOf(int code) {
    return static_cast<std::uint8_t>(1U << (static_cast<unsigned>(code) & 7U));
  }

  std::array<std::uint8_t, kSize / 8> bits_{};
};

}  // namespace QXFontService_NS
