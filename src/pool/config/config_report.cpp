#include "pool/config/config_report.h"

#include <algorithm>
#include <array>

#include "font/contract/keywords.h"
#include "service/errors/config_error.h"

namespace QXFontService_NS {

void FS_ConfigErrorK(int code, int elementKeyword, int attributeKeyword,
                     const icu::UnicodeString& c, const icu::UnicodeString& d) {
  FS_ConfigError(code, FS_KeywordText(elementKeyword), FS_KeywordText(attributeKeyword), c, d);
}

namespace config {
namespace {

/// An error that ends the reading; `kNone` stands for any element.
struct Ending {
  FS_ERROR code;
  Word element;
};

constexpr std::array kEndings = {
    Ending{FS_ERROR_EMPTY_VALUE, kNone},
    Ending{FS_ERROR_NOT_BASE_FILE_NAME, kNone},
    Ending{FS_ERROR_ALREADY_REGISTERED, kGlyphList},
    Ending{FS_ERROR_NOT_INTEGER, kEudcRange},
};

bool endsReading(FS_ERROR code, Word element) {
  return std::any_of(kEndings.begin(), kEndings.end(), [=](const Ending& ending) {
    return ending.code == code && (ending.element == kNone || ending.element == element);
  });
}

}  // namespace

bool reportValue(const ConfigSource& source, FS_ERROR code, Word element, Word attribute,
                 const UnicodeString& value) {
  FS_ConfigErrorK(code, element, attribute, value, source.path());
  return !endsReading(code, element);
}

bool reportEmpty(const ConfigSource& source, Word element, Word attribute) {
  FS_ConfigErrorK(FS_ERROR_EMPTY_VALUE, element, attribute, source.path(), UnicodeString());
  return !endsReading(FS_ERROR_EMPTY_VALUE, element);
}

void throwUnexpectedStart(const ConfigSource& source) {
  FS_ConfigError(FS_ERROR_UNEXPECTED_START_TAG, source.name(), source.path(), UnicodeString(),
                 UnicodeString());
}

void throwUnexpectedEnd(const ConfigSource& source) {
  FS_ConfigError(FS_ERROR_UNEXPECTED_END_TAG, source.name(), source.path(), UnicodeString(),
                 UnicodeString());
}

}  // namespace config
}  // namespace QXFontService_NS
