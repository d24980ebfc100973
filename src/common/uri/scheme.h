#pragma once

#include <cstdint>

#include "qxcommon/text.h"

namespace QXCommonNS::uri {

/// The length of the scheme in front of `text` (RFC 3986), without its colon; 0 when there is
/// none. One letter is no scheme but a drive.
std::int32_t schemeLength(const UnicodeString& text);

/// Whether the scheme of `text` is `scheme`, which is in lower case.
bool hasScheme(const UnicodeString& text, const UnicodeString& scheme);

/// Where the path of a URI with a scheme begins: behind the scheme and the authority.
std::int32_t pathStart(const UnicodeString& text);

/// Where the path of a URI with a scheme ends: before query and fragment.
std::int32_t pathEnd(const UnicodeString& text);

}  // namespace QXCommonNS::uri
