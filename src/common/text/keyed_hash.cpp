#include "common/text/keyed_hash.h"

#include <bit>
#include <exception>
#include <random>

namespace QXCommonNS::text {
namespace {

/// The four words that the bytes are stirred into.
class SipState {
 public:
  explicit SipState(HashKey key)
      : v0_(key.low ^ 0x736F6D6570736575U),
        v1_(key.high ^ 0x646F72616E646F6DU),
        v2_(key.low ^ 0x6C7967656E657261U),
        v3_(key.high ^ 0x7465646279746573U) {}

  void take(std::uint64_t word) {
    v3_ ^= word;
    stir(2);
    v0_ ^= word;
  }

  [[nodiscard]] std::uint64_t finish() {
    v2_ ^= 0xFF;
    stir(4);
    return v0_ ^ v1_ ^ v2_ ^ v3_;
  }

 private:
  void stir(int rounds) {
    for (; rounds > 0; --rounds) {
      v0_ += v1_;
      v2_ += v3_;
      v1_ = std::rotl(v1_, 13) ^ v0_;
      v3_ = std::rotl(v3_, 16) ^ v2_;
      v0_ = std::rotl(v0_, 32);
      v2_ += v1_;
      v0_ += v3_;
      v1_ = std::rotl(v1_, 17) ^ v2_;
      v3_ = std::rotl(v3_, 21) ^ v0_;
      v2_ = std::rotl(v2_, 32);
    }
  }

  std::uint64_t v0_, v1_, v2_, v3_;
};

/// At most eight bytes as a number, the first one lowest.
std::uint64_t littleEndian(std::span<const std::byte> bytes) {
  std::uint64_t word = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    word = word << 8 | std::to_integer<unsigned>(bytes[i]);
  return word;
}

/// A machine without a source of randomness gets the address at which this library was loaded.
std::uint64_t drawWord() {
  try {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
  } catch (const std::exception&) {
    static const int place = 0;
    return std::bit_cast<std::uintptr_t>(&place);
  }
}

}  // namespace

std::uint64_t keyedHash(HashKey key, std::span<const std::byte> bytes) {
  SipState state(key);
  const std::uint64_t size = bytes.size();
  for (; bytes.size() >= 8; bytes = bytes.subspan(8)) state.take(littleEndian(bytes.first(8)));
  state.take(littleEndian(bytes) | size << 56);
  return state.finish();
}

HashKey processHashKey() {
  static const HashKey key{drawWord(), drawWord()};
  return key;
}

std::size_t KeyedTextHash::operator()(const icu::UnicodeString& text) const {
  const std::span<const char16_t> units(text.getBuffer(), static_cast<std::size_t>(text.length()));
  return static_cast<std::size_t>(keyedHash(processHashKey(), std::as_bytes(units)));
}

}  // namespace QXCommonNS::text
