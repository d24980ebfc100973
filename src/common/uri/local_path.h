#pragma once

#include "qxcommon/text.h"

namespace QXCommonNS::uri {

inline constexpr char16_t kSeparator = u'/';

#ifdef _WIN32
inline constexpr bool kBackslashIsSeparator = true;
#else
inline constexpr bool kBackslashIsSeparator = false;
#endif

/// Whether a path with `/` separators begins with a drive: a letter, `:` and a separator.
bool startsWithDrive(const UnicodeString& path);

/// Whether a canonical path carries its full location.
bool isAbsolutePath(const UnicodeString& path);

/// `path` with `\` turned into `/`.
UnicodeString withSlashes(UnicodeString path);

/// `path` without `.` segments, inner `..` segments and doubled separators. A relative path that
/// comes to nothing is "./", so that it does not turn into the empty URI; `..` above the root is
/// dropped.
UnicodeString canonicalPath(const UnicodeString& path);

}  // namespace QXCommonNS::uri
