#include "common/text/root_case.h"

#include <unicode/locid.h>

#include <algorithm>

namespace QXCommonNS {
namespace {

constexpr char16_t kCaseBit = 0x20;

bool isAscii(const icu::UnicodeString& text) {
  const char16_t* units = text.getBuffer();
  return std::all_of(units, units + text.length(), [](char16_t unit) { return unit < 0x80; });
}

/// Turns the letters from `first` to `last` into their other case.
void flip(icu::UnicodeString& text, char16_t first, char16_t last) {
  const int32_t length = text.length();
  char16_t* units = text.getBuffer(length);
  if (units == nullptr) return;
  for (int32_t i = 0; i < length; ++i) {
    if (units[i] >= first && units[i] <= last)
      units[i] = static_cast<char16_t>(units[i] ^ kCaseBit);
  }
  text.releaseBuffer(length);
}

}  // namespace

icu::UnicodeString lowerCase(icu::UnicodeString text) {
  if (text.isBogus() || !isAscii(text)) return text.toLower(icu::Locale::getRoot());
  flip(text, u'A', u'Z');
  return text;
}

icu::UnicodeString upperCase(icu::UnicodeString text) {
  if (text.isBogus() || !isAscii(text)) return text.toUpper(icu::Locale::getRoot());
  flip(text, u'a', u'z');
  return text;
}

}  // namespace QXCommonNS
