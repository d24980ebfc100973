#include "pool/system/system_eudc.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "qxcommon/lang.h"
#include "qxcommon/tokenizer.h"

#include "common/platform/platform.h"
#include "pool/system/registry_text.h"

namespace QXFontService_NS {
namespace {

using icu::Locale;
using QXCommonNS::platform;
using QXCommonNS::QXLang;
using QXCommonNS::QXTokenizer;
using QXCommonNS::RegistryRoot;
using QXCommonNS::RegistryValue;
using QXCommonNS::bytes::ByteView;

constexpr std::u16string_view kDefaultFontValue = u"SystemDefaultEUDCFont";
constexpr std::u16string_view kRangeValue = u"Unicode";
constexpr std::string_view kRangeKey =
    "System\\CurrentControlSet\\Control\\NLS\\CodePage\\EUDCCodeRange";
constexpr std::array kFamilyCodePages = {"932", "936", "949", "950"};
constexpr std::int64_t kBeyondAnyCode = 0x7FFFFFFF;

std::string eudcKey(const char* codePage) {
  return std::string("EUDC\\") + codePage;
}

QXUri resolved(const UnicodeString& fontFolder, const UnicodeString& file) {
  return QXUri(QXUri(fontFolder, QXCommonNS::URISTR_FOLDER), file, QXCommonNS::URISTR_USER);
}

int hexDigit(char16_t unit) {
  return unit < 0x80 ? u_digit(unit, 16) : -1;
}

bool isHexPrefix(const UnicodeString& text, int at) {
  return text.charAt(at) == u'0' && (text.charAt(at + 1) | 0x20) == u'x' &&
         hexDigit(text.charAt(at + 2)) >= 0;
}

/// The C library's `wcstol` of base 16, which the system reads this value with: white space, a
/// sign, "0x" and digits; without digits 0, and `at` stays. Overlong numbers saturate.
std::int64_t hexNumber(const UnicodeString& text, int& at) {
  int next = at;
  while (u_isspace(text.charAt(next)) != 0) ++next;
  const bool negative = text.charAt(next) == u'-';
  if (negative || text.charAt(next) == u'+') ++next;
  if (isHexPrefix(text, next)) next += 2;
  std::int64_t number = 0;
  for (int digit = hexDigit(text.charAt(next)); digit >= 0; digit = hexDigit(text.charAt(next))) {
    number = std::min(number * 16 + digit, kBeyondAnyCode);
    at = ++next;
  }
  return negative ? -number : number;
}

void readDefault(ServiceSettings& settings, const UnicodeString& fontFolder) {
  UnicodeString file;
  if (!registryTextValue(RegistryRoot::currentUser, eudcKey(eudcCodePage()), kDefaultFontValue,
                         file)) {
    return;
  }
  const QXUri uri = resolved(fontFolder, file);
  if (uri.isAbsolute() && uri.isFile() && uri.isFileExists()) settings.eudcSystemDefault = uri;
}

void readRange(ServiceSettings& settings) {
  UnicodeString text;
  if (!registryTextValue(RegistryRoot::localMachine, kRangeKey, kRangeValue, text)) return;
  settings.eudcRangeConfigured = addEudcRanges(text, settings.eudcSet);
}

void readFamilies(ServiceSettings& settings, const UnicodeString& fontFolder,
                  const char* codePage) {
  std::vector<RegistryValue> values;
  if (!platform().registryValues(RegistryRoot::currentUser, eudcKey(codePage), values)) return;
  const UnicodeString defaultValue(kDefaultFontValue.data(),
                                   static_cast<int>(kDefaultFontValue.size()));
  for (const RegistryValue& value : values) {
    const UnicodeString family(value.name.data(), static_cast<int>(value.name.size()));
    if (value.type != RegistryValue::kText || family.caseCompare(defaultValue, 0) == 0) continue;
    settings.eudcMap.insert({family, resolved(fontFolder, registryText(ByteView(value.data)))});
  }
}

}  // namespace

const char* eudcCodePage() {
  const Locale locale = QXLang::getDefaultLocale();
  if (locale == Locale::getTraditionalChinese()) return "950";
  if (locale == Locale::getKorean()) return "949";
  if (locale == Locale::getSimplifiedChinese()) return "936";
  return "932";
}

void readSystemEudc(ServiceSettings& settings, const UnicodeString& fontFolder) {
  if (settings.eudcSystemDefault.isEmpty()) readDefault(settings, fontFolder);
  if (!settings.eudcRangeConfigured) readRange(settings);
  for (const char* codePage : kFamilyCodePages) readFamilies(settings, fontFolder, codePage);
}

bool addEudcRanges(const UnicodeString& text, EudcSet& set) {
  bool any = false;
  QXTokenizer tokens(text, QXTokenizer::TOKENIZER_DEFAULT);
  for (UnicodeString piece = tokens.nextSeparatedValue(u','); !piece.isEmpty();
       piece = tokens.nextSeparatedValue(u',')) {
    int at = 0;
    const std::int64_t first = hexNumber(piece, at);
    if (at >= piece.length() || piece.charAt(at) != u'-') continue;
    ++at;
    const std::int64_t last = hexNumber(piece, at);
    set.add(first, last < first ? first : last);  // the first one is set in any case
    any = true;
  }
  return any;
}

}  // namespace QXFontService_NS
