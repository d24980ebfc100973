#pragma once

#include <cstdint>
#include <span>

namespace QXCommonNS::stream {

/// The OpenType table checksum of `content`: the sum, modulo 2^32, of the big-endian 32-bit words,
/// the last one filled up with zero bytes. Sums of pieces add up where all but the last piece are
/// whole words.
std::uint32_t otfChecksum(std::span<const char> content);

}  // namespace QXCommonNS::stream
