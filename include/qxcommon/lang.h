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
  explicit QXLang(const Locale& locale);  ///< A copy of `locale` is kept.
  ~QXLang();

  [[nodiscard]] const Locale& getLocale() const { return locale_; }  ///< Lives as long as this.

  /// The locale of the process: ICU's default at the time of the call, to be compared with
  /// constants such as `Locale::getKorean()`. A host that wants another language for the names of
  /// fonts sets it with `Locale::setDefault` before it opens the service, since each font chooses
  /// its names when it is read. Any thread.
  [[nodiscard]] static Locale getDefaultLocale();

 private:
  Locale locale_;
};

}  // namespace QXCommonNS
