#include "pool/system/system_eudc.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>

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

/// A hexadecimal number at `at`, which is left behind it; overlong ones saturate.
std::int64_t hexNumber(const UnicodeString& text, int& at) {
  std::int64_t number = 0;
  while (at < text.length() && u_isspace(text.charAt(at)) != 0) ++at;
  for (; at < text.length(); ++at) {
    const int digit = u_digit(text.charAt(at), 16);
    if (digit < 0) break;
    number = number * 16 + digit;
    if (number > kBeyondAnyCode) number = kBeyondAnyCode;
  }
  return number;
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
  addEudcRanges(text, settings.eudcSet);
  settings.eudcRangeConfigured = true;
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

void addEudcRanges(const UnicodeString& text, EudcSet& set) {
  QXTokenizer tokens(text, QXTokenizer::TOKENIZER_DEFAULT);
  for (UnicodeString piece = tokens.nextSeparatedValue(u','); !piece.isEmpty();
       piece = tokens.nextSeparatedValue(u',')) {
    int at = 0;
    const std::int64_t first = hexNumber(piece, at);
    if (at >= piece.length() || piece.charAt(at) != u'-') continue;
    ++at;
    const std::int64_t last = hexNumber(piece, at);
    set.add(first, last < first ? first : last);  // the first one is set in any case
  }
}

}  // namespace QXFontService_NS
