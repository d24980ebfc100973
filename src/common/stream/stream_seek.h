#pragma once

#include <cstdint>
#include <ios>
#include <limits>

namespace QXCommonNS::stream {

/// What a stream buffer answers to a seek that cannot be.
inline const std::streampos kNoPosition = std::streampos(std::streamoff(-1));

/// `from` + `offset`, or `kNoPosition` where that lies before the start or is no number. Behind
/// the end is a position too: reading there gives nothing.
inline std::streampos sumPosition(std::uint64_t from, std::streamoff offset) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::streamoff>::max());
  const auto distance = static_cast<std::uint64_t>(offset);
  if (offset < 0) {
    const std::uint64_t back = 0 - distance;
    return back <= from ? std::streampos(static_cast<std::streamoff>(from - back)) : kNoPosition;
  }
  if (from > kMost || distance > kMost - from) return kNoPosition;
  return std::streampos(static_cast<std::streamoff>(from + distance));
}

}  // namespace QXCommonNS::stream
