#include "qxcommon/lang.h"

namespace QXCommonNS {

QXLang::QXLang() : locale_(getDefaultLocale()) {}
QXLang::QXLang(const Locale& locale) : locale_(locale) {}
QXLang::~QXLang() = default;

Locale QXLang::getDefaultLocale() {
  return Locale::getDefault();
}

}  // namespace QXCommonNS
