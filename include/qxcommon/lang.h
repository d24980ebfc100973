#pragma once

#include <unicode/locid.h>

#include "qxcommon/export.h"

namespace QXCommonNS {

using icu::Locale;

/// A language: a wrapper of ICU's `Locale`.
class QX_EXPORT QXLang {
 public:
  /// A language number as the `name` table of platform 3 spells it (a Windows LCID). Any number
  /// may be cast to it.
  enum LanguageID : unsigned int {
    LANGID_DEFAULT = 0  ///< the language of the process
  };

  /// The language of the process.
  QXLang();
  explicit QXLang(const Locale& locale);
  ~QXLang();

  [[nodiscard]] const Locale& getLocale() const { return locale_; }

  /// The locale that the system gives the process (on POSIX that of messages), to be compared
  /// with constants such as `Locale::getKorean()`. What a host sets in ICU does not change it.
  [[nodiscard]] static Locale getDefaultLocale();

 private:
  Locale locale_;
};

}  // namespace QXCommonNS
