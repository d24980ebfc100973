#include "qxcommon/uuid.h"

#include <chrono>
#include <random>

namespace QXCommonNS {
namespace {

using Generator = std::mt19937;

/// Randomness of the system; where it has none to give, the time and an address.
std::array<std::uint32_t, 8> seedWords(const void* here) {
  std::array<std::uint32_t, 8> words{};
  try {
    std::random_device device;
    for (std::uint32_t& word : words) word = device();
  } catch (const std::exception&) {
    const auto time = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    words[0] = static_cast<std::uint32_t>(time);
    words[1] = static_cast<std::uint32_t>(time >> 32);
    words[2] = static_cast<std::uint32_t>(std::hash<const void*>{}(here));
  }
  return words;
}

/// The system is asked once a thread: charstrings may ask for millions of numbers.
Generator& generator() {
  thread_local Generator ofThread = [] {
    const int here = 0;
    const auto words = seedWords(&here);
    std::seed_seq seed(words.begin(), words.end());
    return Generator(seed);
  }();
  return ofThread;
}

void appendHex(UnicodeString& text, std::uint32_t number, int digits) {
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) {
    text.append(u"0123456789abcdef"[number >> shift & 0xF]);
  }
}

}  // namespace

QXUUID::QXUUID() : words_{} {
  Generator& random = generator();
  for (std::uint32_t& word : words_) word = static_cast<std::uint32_t>(random());
  words_[1] = (words_[1] & 0xFFFF0FFFu) | 0x00004000u;  // version 4
  words_[2] = (words_[2] & 0x3FFFFFFFu) | 0x80000000u;  // the variant of RFC 4122
}

UnicodeString QXUUID::toString() const {
  UnicodeString text;
  appendHex(text, words_[0], 8);
  text.append(u'-');
  appendHex(text, words_[1] >> 16, 4);
  text.append(u'-');
  appendHex(text, words_[1] & 0xFFFF, 4);
  text.append(u'-');
  appendHex(text, words_[2] >> 16, 4);
  text.append(u'-');
  appendHex(text, words_[2] & 0xFFFF, 4);
  appendHex(text, words_[3], 8);
  return text;
}

}  // namespace QXCommonNS
