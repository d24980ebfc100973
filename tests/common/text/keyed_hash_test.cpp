#include "common/text/keyed_hash.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace QXCommonNS::text {
namespace {

/// The key and texts of the paper and its reference vectors: the bytes 0, 1, 2 ...
constexpr HashKey kKey{0x0706050403020100U, 0x0F0E0D0C0B0A0908U};

std::uint64_t hashOfCounting(std::size_t size) {
  std::array<std::byte, 64> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = std::byte(i);
  return keyedHash(kKey, std::span(bytes).first(size));
}

TEST(KeyedHash, IsSipHashOfTwoAndFourRounds) {
  struct Vector {
    std::size_t size;
    std::uint64_t hash;
  };
  for (const auto& [size, hash] : {Vector{0, 0x726FDB47DD0E0E31U}, Vector{1, 0x74F839C593DC67FDU},
                                   Vector{2, 0x0D6C8009D9A94F5AU}, Vector{3, 0x85676696D7FB7E2DU},
                                   Vector{8, 0x93F5F5799A932462U}, Vector{15, 0xA129CA6149BE45E5U}})
    EXPECT_EQ(hashOfCounting(size), hash) << size;
}

TEST(KeyedHash, AnotherKeyGivesAnotherHash) {
  const std::array<std::byte, 4> bytes{};
  const std::set<std::uint64_t> hashes{keyedHash({0, 0}, bytes), keyedHash({1, 0}, bytes),
                                       keyedHash({0, 1}, bytes)};
  EXPECT_EQ(hashes.size(), 3u);
}

TEST(KeyedHash, TheKeyOfAProcessStays) {
  const HashKey key = processHashKey();
  EXPECT_EQ(key.low, processHashKey().low);
  EXPECT_EQ(key.high, processHashKey().high);
}

TEST(KeyedTextHash, EqualTextsHashAlikeHoweverTheyAreHeld) {
  const KeyedTextHash hash;
  const icu::UnicodeString whole(u"Noto Sans");
  const icu::UnicodeString part(icu::UnicodeString(u"My Noto Sans"), 3);
  EXPECT_EQ(hash(whole), hash(part));
  EXPECT_NE(hash(whole), hash(icu::UnicodeString(u"Noto Sanr")));
  EXPECT_EQ(hash(icu::UnicodeString()), hash(icu::UnicodeString(u"")));
}

}  // namespace
}  // namespace QXCommonNS::text
