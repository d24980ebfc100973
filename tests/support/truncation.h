#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qxtest {

/// Calls `test(prefix)` with each prefix of `bytes`, from the empty one up to all but the last
/// byte: what a reader must survive when a file was cut.
template <class Test>
void forEachPrefix(std::string_view bytes, Test test) {
  for (std::size_t size = 0; size < bytes.size(); ++size) test(std::string(bytes.substr(0, size)));
}

namespace detail {

/// `bytes` with `width` bytes at `at` set to `value`, big-endian.
inline std::string withField(std::string bytes, std::size_t at, unsigned width,
                             std::uint32_t value) {
  for (unsigned i = 0; i < width; ++i)
    bytes[at + i] = static_cast<char>(value >> (8 * (width - 1 - i)) & 0xFF);
  return bytes;
}

template <std::size_t Count, class Test>
void forEachValue(std::string_view bytes, unsigned width,
                  const std::array<std::uint32_t, Count>& values, Test& test) {
  for (std::size_t at = 0; at + width <= bytes.size(); at += 2)
    for (const std::uint32_t value : values) test(withField(std::string(bytes), at, width, value));
}

}  // namespace detail

/// Calls `test(changed)` with each 16-bit field of `bytes` set to the extremes of its type.
template <class Test>
void forEachWordExtreme(std::string_view bytes, Test test) {
  constexpr std::array<std::uint32_t, 5> kValues{0, 1, 0x7FFF, 0x8000, 0xFFFF};
  detail::forEachValue(bytes, 2, kValues, test);
}

/// Calls `test(changed)` with each 32-bit field of `bytes`, at even places, set to extremes.
template <class Test>
void forEachLongExtreme(std::string_view bytes, Test test) {
  constexpr std::array<std::uint32_t, 5> kValues{0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF};
  detail::forEachValue(bytes, 4, kValues, test);
}

/// All three: cut at every byte, each 16-bit and each 32-bit field at extremes.
template <class Test>
void forEachDamage(std::string_view bytes, Test test) {
  forEachPrefix(bytes, test);
  forEachWordExtreme(bytes, test);
  forEachLongExtreme(bytes, test);
}

}  // namespace qxtest
