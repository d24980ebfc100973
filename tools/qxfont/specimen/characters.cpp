#include "qxfont/specimen/characters.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <utility>

#include "qxfontservice/ext/inspect.h"

#include "qxfont/typeset/shaper.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;

constexpr uint32_t kUnseen = U_GC_Z_MASK | U_GC_CC_MASK | U_GC_CF_MASK | U_GC_CS_MASK;

}  // namespace

bool Characters::has(int codePoint) const {
  return std::binary_search(codes_.begin(), codes_.end(), codePoint);
}

bool Characters::hasAll(const icu::UnicodeString& text) const {
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const int codePoint = text.char32At(i);
    if (isSeen(codePoint) && !has(codePoint)) return false;
  }
  return true;
}

Characters charactersOf(const fs::FS_FontInfo& font) {
  std::vector<int> codes;
  if (font.isType1Font()) {
    for (const auto& row : fs::ext::characterWidths(font)) codes.push_back(row.code);
  } else {
    for (const auto& row : fs::ext::characterMap(font)) codes.push_back(row.code);
  }
  return Characters(std::move(codes));
}

bool isSeen(int codePoint) {
  const bool isNone =
      (U_MASK(u_charType(codePoint)) & kUnseen) != 0 || U_IS_UNICODE_NONCHAR(codePoint);
  return !isNone && !isInvisible(codePoint);
}

const icu::UnicodeString& labelLetters() {
  static const icu::UnicodeString letters(
      u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.,:-+()/");
  return letters;
}

}  // namespace qxfont
