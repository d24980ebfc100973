#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <span>
#include <vector>

namespace QXCommonNS::bytes {

/// Reads into `out` from the absolute position `offset` of `stream`, and gives how many bytes came.
///
/// The one place that clears the stream's state (the read before may have hit the end), seeks and
/// counts. A negative offset, or one past the end, gives 0. Fewer bytes than `out` holds is a
/// short read: the caller's to judge; the rest of `out` is left as it was.
std::size_t readUpTo(std::istream& stream, std::int64_t offset, std::span<std::byte> out);

/// Whether all of `out` could be read; see `readUpTo`.
[[nodiscard]] bool readExact(std::istream& stream, std::int64_t offset, std::span<std::byte> out);

/// Reads at most `count` bytes from `offset`. Memory grows with the bytes that come (64 KiB, then
/// doubling), never from `count`, which may be a damaged file's word.
[[nodiscard]] std::vector<std::byte> readBlock(std::istream& stream, std::int64_t offset,
                                               std::uint64_t count);

}  // namespace QXCommonNS::bytes
