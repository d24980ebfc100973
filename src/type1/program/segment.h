#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace QXFontService_NS::type1 {

// A font program in segments (Adobe Technical Note 5040): each begins with a mark, its kind and
// its length, the low byte first.

inline constexpr std::size_t kSegmentHeaderSize = 6;
inline constexpr std::byte kSegmentMark{0x80};
inline constexpr std::byte kTextSegment{1};
inline constexpr std::byte kBinarySegment{2};
inline constexpr std::byte kEndOfFile{3};

/// The length that a segment's header states.
inline std::uint32_t segmentLength(std::span<const std::byte, kSegmentHeaderSize> header) {
  std::uint32_t length = 0;
  for (std::size_t i = kSegmentHeaderSize; i > 2; --i)
    length = length << 8 | std::to_integer<std::uint32_t>(header[i - 1]);
  return length;
}

}  // namespace QXFontService_NS::type1
