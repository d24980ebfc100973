#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace QXCommonNS::text {

/// The key of a hash: whoever does not know it cannot choose texts that collide.
struct HashKey {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
};

/// A keyed hash of bytes (SipHash-2-4 of Aumasson and Bernstein), the same on every machine.
[[nodiscard]] std::uint64_t keyedHash(HashKey key, std::span<const std::byte> bytes);

/// The key of this process, drawn at the first need. Any thread.
[[nodiscard]] HashKey processHashKey();

/// The hash of a text for tables whose texts come from files: hashes that are the same everywhere,
/// ICU's among them, let one font with chosen names keep a table busy for hours.
struct KeyedTextHash {
  [[nodiscard]] std::size_t operator()(const icu::UnicodeString& text) const;
};

}  // namespace QXCommonNS::text
