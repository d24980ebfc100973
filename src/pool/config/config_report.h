#pragma once

#include <unicode/unistr.h>

#include "qxfontservice/error_codes.h"

#include "pool/config/config_source.h"
#include "pool/config/config_words.h"

namespace QXFontService_NS {

/// Reports a configuration error whose element and attribute are keyword numbers. Which text goes
/// to `c` and `d` depends on the code: the value and the file's path, or, where the message shows
/// no value, the path alone in `c`. Throws or collects by the code's level.
void FS_ConfigErrorK(int code, int elementKeyword, int attributeKeyword,
                     const icu::UnicodeString& c, const icu::UnicodeString& d);

namespace config {

/// Reports what is wrong with an attribute and tells whether the reading of the file goes on.
///
/// Some errors end the reading of the whole file where they strike, silently, as if its end had
/// been reached: existing configurations rely on what stands behind having no effect. The others
/// are collected and the element is read on.
[[nodiscard]] bool reportValue(const ConfigSource& source, FS_ERROR code, Word element,
                               Word attribute, const UnicodeString& value);

/// The same for a missing or empty value; these always end the reading.
[[nodiscard]] bool reportEmpty(const ConfigSource& source, Word element, Word attribute);

/// Throws for a start or end tag that has no place here.
void throwUnexpectedStart(const ConfigSource& source);
void throwUnexpectedEnd(const ConfigSource& source);

}  // namespace config
}  // namespace QXFontService_NS
