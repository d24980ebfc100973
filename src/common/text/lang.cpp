#include "qxcommon/lang.h"

#include <string>

#include "common/platform/platform.h"

namespace QXCommonNS {
namespace {

/// The locale that a platform names, made canonical, so that "zh-TW" and "zh_TW" both equal ICU's
/// constant. The last one is kept: every font with names in several languages asks, and making
/// one costs as much as reading the names.
Locale canonicalLocale(const std::string& name) {
  struct Made {
    std::string name;
    Locale locale;
  };
  thread_local Made last;
  if (last.name != name) last = {name, Locale::createCanonical(name.c_str())};
  return last.locale;
}

}  // namespace

QXLang::QXLang() : locale_(getDefaultLocale()) {}
QXLang::QXLang(const Locale& locale) : locale_(locale) {}
QXLang::~QXLang() = default;

Locale QXLang::getDefaultLocale() {
  const std::string name = platform().localeName();
  return name.empty() ? Locale::getDefault() : canonicalLocale(name);
}

}  // namespace QXCommonNS
