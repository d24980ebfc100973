#include "qxfontservice/new_text_metric_ex.h"

#include <algorithm>

#include "qxcommon/unicode_range.h"

#include "font/contract/font_file_options.h"
#include "pool/records/unicode_ranges_data.h"

namespace QXFontService_NS {
namespace {

// Bits of OpenType `OS/2`, ulCodePageRange1.
constexpr unsigned int kLatin1Page = 1U << 0;
constexpr unsigned int kCyrillicPage = 1U << 2;
constexpr unsigned int kGreekPage = 1U << 3;
constexpr unsigned int kHebrewPage = 1U << 5;
constexpr unsigned int kArabicPage = 1U << 6;
constexpr unsigned int kThaiPage = 1U << 16;
constexpr unsigned int kJapanesePage = 1U << 17;
constexpr unsigned int kSimplifiedChinesePage = 1U << 18;
constexpr unsigned int kKoreanPage = 1U << 19;
constexpr unsigned int kTraditionalChinesePage = 1U << 20;

bool hasChineseSubset(const FS_NewTextMetricEx& metric) {
  return metric.checkUSB(USB_CJK_UNIFIED_IDEOGRAPHS) || metric.checkUSB(USB_CJK_COMPATIBILITY) ||
         metric.checkUSB(USB_CJK_SYMBOLS_AND_PUNCTUATION);
}

bool hasJapaneseSubset(const FS_NewTextMetricEx& metric) {
  return metric.checkUSB(USB_HIRAGANA) || metric.checkUSB(USB_KATAKANA) ||
         hasChineseSubset(metric) || metric.checkUSB(USB_VERTICAL_FORMS);
}

}  // namespace

bool FS_NewTextMetricEx::checkUSB(UnicodeSubsetBitFields bit) const {
  const int number = bit;
  if (number < 0 || number > 127) return false;
  return (getUnicodeSubsetBits(number / 32) >> (number % 32) & 1U) != 0;
}

bool FS_NewTextMetricEx::isInUSB(int codePoint) const {
  // U+FFFF asks for no character, though the row of U+FFFE would hold it.
  if (codePoint == 0xFFFF) return false;
  const auto ranges = pool::unicodeSubsetRanges();
  const auto behind = std::upper_bound(
      ranges.begin(), ranges.end(), codePoint,
      [](int code, const pool::UnicodeSubsetRange& row) { return code < row.first; });
  if (behind == ranges.begin()) return false;
  const pool::UnicodeSubsetRange& row = *(behind - 1);
  return codePoint <= row.last && checkUSB(static_cast<UnicodeSubsetBitFields>(row.bit));
}

bool FS_NewTextMetricEx::isInUnicodeRange(int codePoint) const {
  const FS_FontFileOptions* options = getFileOptions();
  return options == nullptr || options->range == nullptr || options->range->inRange(codePoint);
}

// Scripts, one line each, to be read as a table.
// clang-format off
bool FS_NewTextMetricEx::isLatin1() const {
  return checkUSB(USB_BASIC_LATIN) || checkFSCharSet(kLatin1Page);
}
bool FS_NewTextMetricEx::isGreek() const {
  return checkUSB(USB_GREEK_AND_COPTIC) || checkFSCharSet(kGreekPage);
}
bool FS_NewTextMetricEx::isCyrillic() const {
  return checkUSB(USB_CYRILLIC) || checkFSCharSet(kCyrillicPage);
}
bool FS_NewTextMetricEx::isArmenian() const { return checkUSB(USB_ARMENIAN); }
bool FS_NewTextMetricEx::isHebrew() const {
  return checkUSB(USB_HEBREW) || checkFSCharSet(kHebrewPage);
}
bool FS_NewTextMetricEx::isArabic() const {
  return checkUSB(USB_ARABIC) || checkFSCharSet(kArabicPage);
}
bool FS_NewTextMetricEx::isDevanagari() const { return checkUSB(USB_DEVANAGARI); }
bool FS_NewTextMetricEx::isBengali() const { return checkUSB(USB_BENGALI); }
bool FS_NewTextMetricEx::isGurmukhi() const { return checkUSB(USB_GURMUKHI); }
bool FS_NewTextMetricEx::isGujarati() const { return checkUSB(USB_GUJARATI); }
bool FS_NewTextMetricEx::isOriya() const { return checkUSB(USB_ORIYA); }
bool FS_NewTextMetricEx::isTamil() const { return checkUSB(USB_TAMIL); }
bool FS_NewTextMetricEx::isTelugu() const { return checkUSB(USB_TELUGU); }
bool FS_NewTextMetricEx::isKannada() const { return checkUSB(USB_KANNADA); }
bool FS_NewTextMetricEx::isMalayalam() const { return checkUSB(USB_MALAYALAM); }
bool FS_NewTextMetricEx::isThai() const { return checkUSB(USB_THAI) || checkFSCharSet(kThaiPage); }
bool FS_NewTextMetricEx::isLao() const { return checkUSB(USB_LAO); }
bool FS_NewTextMetricEx::isGeorgian() const { return checkUSB(USB_GEORGIAN); }
bool FS_NewTextMetricEx::isMathOperator() const {
  return checkUSB(USB_MATHEMATICAL_OPERATORS) || checkUSB(USB_MATHEMATICAL_ALPHANUMERIC_SYMBOLS);
}
bool FS_NewTextMetricEx::isTibetan() const { return checkUSB(USB_TIBETAN); }
bool FS_NewTextMetricEx::isSyriac() const { return checkUSB(USB_SYRIAC); }
bool FS_NewTextMetricEx::isSinhala() const { return checkUSB(USB_SINHALA); }
bool FS_NewTextMetricEx::isMyanmar() const { return checkUSB(USB_MYANMAR); }
bool FS_NewTextMetricEx::isEthiopic() const { return checkUSB(USB_ETHIOPIC); }
bool FS_NewTextMetricEx::isKhmer() const { return checkUSB(USB_KHMER); }
bool FS_NewTextMetricEx::isKorean() const {
  return checkUSB(USB_HANGUL_SYLLABLES) || checkFSCharSet(kKoreanPage);
}
bool FS_NewTextMetricEx::isHiragana(bool) const {
  return checkUSB(USB_HIRAGANA) || checkFSCharSet(kJapanesePage);
}
bool FS_NewTextMetricEx::isKatakana(bool) const {
  return checkUSB(USB_KATAKANA) || checkFSCharSet(kJapanesePage);
}
// clang-format on

bool FS_NewTextMetricEx::isChineseSimp(bool any) const {
  return (any || checkFSCharSet(kSimplifiedChinesePage)) && hasChineseSubset(*this);
}

bool FS_NewTextMetricEx::isChineseTrad(bool any) const {
  return (any || checkFSCharSet(kTraditionalChinesePage)) && hasChineseSubset(*this);
}

bool FS_NewTextMetricEx::isJapanese(bool any) const {
  return (any || checkFSCharSet(kJapanesePage)) && hasJapaneseSubset(*this);
}

bool FS_NewTextMetricEx::isJapaneseEncoding() const {
  return isJapanese(false) && !checkFSCharSet(~kJapanesePage);
}

bool FS_NewTextMetricEx::isChineseSimpEncoding() const {
  return isChineseSimp(false) && !checkFSCharSet(~kSimplifiedChinesePage);
}

bool FS_NewTextMetricEx::isChineseTradEncoding() const {
  return isChineseTrad(false) && !checkFSCharSet(~kTraditionalChinesePage);
}

// A font with the Korean subset bit and no code page at all counts too.
bool FS_NewTextMetricEx::isKoreanEncoding() const {
  return isKorean() && !checkFSCharSet(~kKoreanPage);
}

}  // namespace QXFontService_NS
