#include "qxcommon/lang.h"

#include <string>

#include "common/platform/platform.h"

namespace QXCommonNS {

QXLang::QXLang() : locale_(getDefaultLocale()) {}
QXLang::QXLang(const Locale& locale) : locale_(locale) {}
QXLang::~QXLang() = default;

Locale QXLang::getDefaultLocale() {
  // Made canonical, so that "zh-TW" and "zh_TW" both equal ICU's constant.
  const std::string name = platform().localeName();
  return name.empty() ? Locale::getDefault() : Locale::createCanonical(name.c_str());
}

}  // namespace QXCommonNS
