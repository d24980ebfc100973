#pragma once

#include <unicode/unistr.h>

namespace QXFontService_NS {

/// Replaces the folder macros of a `font-folder` path, all occurrences, in a fixed order.
///
/// "@@WINFONTS@@" is the system's font folder and sets `winFontsUsed`, found or not;
/// "@@APPDATA@@", "@@LOCALAPPDATA@@" and "@@PROGRAMDATA@@" are the known folders of those names;
/// "@@HOME@@" is the environment variable named `homeEnvName`, and only where that is given. A
/// macro without a folder stays in the text, which then is no absolute path.
icu::UnicodeString FS_ExpandMacros(const icu::UnicodeString& path, const char* homeEnvName,
                                   bool& winFontsUsed);

}  // namespace QXFontService_NS
