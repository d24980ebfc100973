#include "qxfont/html/html_text.h"

#include <unicode/uchar.h>

namespace qxfont {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isLineEnd(UChar32 character) {
  return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 ||
         character == 0x2029;
}

/// What HTML shows of a character.
UChar32 allowed(UChar32 character) {
  if (isLineEnd(character) || character == '\t') return ' ';
  const bool isNone = u_iscntrl(character) != 0 || U_IS_UNICODE_NONCHAR(character);
  return isNone && u_charType(character) != U_FORMAT_CHAR ? static_cast<UChar32>(kReplacement)
                                                          : character;
}

const char* referenceOf(UChar32 character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return nullptr;
  }
}

}  // namespace

std::string htmlText(const icu::UnicodeString& text) {
  icu::UnicodeString out;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 character = allowed(text.char32At(i));
    if (const char* reference = referenceOf(character)) {
      out.append(icu::UnicodeString(reference, -1, US_INV));
    } else {
      out.append(character);
    }
  }
  std::string bytes;
  return out.toUTF8String(bytes);
}

}  // namespace qxfont
