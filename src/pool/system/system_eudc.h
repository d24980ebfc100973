#pragma once

#include <unicode/unistr.h>

#include "pool/settings/service_settings.h"

namespace QXFontService_NS {

/// The code page of the process for end-user-defined characters: "950", "949", "936" by the
/// default locale, "932" for any other.
const char* eudcCodePage();

/// Adds what the system's registry says of end-user-defined characters: the default font and the
/// code range where none is configured, and the fonts of families, which never replace a
/// configured one. Failures end their own step silently.
void readSystemEudc(ServiceSettings& settings, const UnicodeString& fontFolder);

/// Reads a text of hexadecimal ranges, "E000-E0FF,E200-E2FF", up to the first empty piece; a piece
/// without a hyphen behind its first number is passed over. False when none was a range: then the
/// private use area stays the default.
bool addEudcRanges(const UnicodeString& text, EudcSet& set);

}  // namespace QXFontService_NS
