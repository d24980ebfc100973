#include "common/uri/scheme.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace QXCommonNS::uri {
namespace {

bool isLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isSchemeCharacter(char16_t c) {
  return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'.' || c == u'-';
}

std::int32_t firstOf(const UnicodeString& text, char16_t c, std::int32_t from) {
  const std::int32_t at = text.indexOf(c, from);
  return at < 0 ? text.length() : at;
}

}  // namespace

std::int32_t schemeLength(const UnicodeString& text) {
  if (!isLetter(text.charAt(0))) return 0;
  std::int32_t length = 1;
  while (isSchemeCharacter(text.charAt(length))) ++length;
  return length >= 2 && text.charAt(length) == u':' ? length : 0;
}

bool hasScheme(const UnicodeString& text, const UnicodeString& scheme) {
  return schemeLength(text) == scheme.length() &&
         text.caseCompare(0, scheme.length(), scheme, U_FOLD_CASE_DEFAULT) == 0;
}

std::int32_t pathStart(const UnicodeString& text) {
  const std::int32_t behindScheme = schemeLength(text) + 1;
  if (text.compare(behindScheme, 2, u"//", 0, 2) != 0) return behindScheme;
  return std::min(firstOf(text, u'/', behindScheme + 2), pathEnd(text));
}

std::int32_t pathEnd(const UnicodeString& text) {
  return std::min(firstOf(text, u'?', 0), firstOf(text, u'#', 0));
}

}  // namespace QXCommonNS::uri
