#include "font/contract/font_name_rules.h"

#include <algorithm>
#include <utility>

#include "common/text/root_case.h"

namespace QXFontService_NS {
namespace {

bool isDropped(char16_t unit) {
  return unit == u' ' || unit == u'-' || unit == u'\u3000';
}

bool contains(const UnicodeString& text, const char16_t* word) {
  return text.indexOf(UnicodeString(word)) >= 0;
}

int boldWeight(const UnicodeString& text) {
  if (contains(text, u"demi") || contains(text, u"semi")) return 600;
  if (contains(text, u"extra") || contains(text, u"ultra")) return 800;
  return 700;
}

int lightWeight(const UnicodeString& text) {
  return contains(text, u"extra") || contains(text, u"ultra") ? 200 : 300;
}

}  // namespace

UnicodeString normalizeFontName(const UnicodeString& name) {
  const int32_t length = name.length();
  const char16_t* units = name.getBuffer();
  UnicodeString kept;
  char16_t* out = kept.getBuffer(length);
  if (units == nullptr || out == nullptr) return UnicodeString();
  const char16_t* end = std::remove_copy_if(units, units + length, out, isDropped);
  kept.releaseBuffer(static_cast<int32_t>(end - out));
  return QXCommonNS::upperCase(std::move(kept));
}

int weightFromName(const UnicodeString& text) {
  const UnicodeString lower = QXCommonNS::lowerCase(text);
  if (contains(lower, u"thin")) return 100;
  if (contains(lower, u"light")) return lightWeight(lower);
  if (contains(lower, u"medium")) return 500;
  if (contains(lower, u"bold")) return boldWeight(lower);
  if (contains(lower, u"black") || contains(lower, u"heavy")) return 900;
  return 400;
}

}  // namespace QXFontService_NS
