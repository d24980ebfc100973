#pragma once

#include "qxcommon/name.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The words of Type 1 and CFF dictionaries, of charstrings and of the configuration, in one
/// table: index 0 is the empty text, 1 to 165 stand in code unit order.
inline constexpr int kKeywordCount = 166;

/// The word as a name for lookups in dictionary values; of the empty text outside the table.
QXName FS_KeywordName(int index);
/// The word; empty outside the table. The reference stays good to the end of the process.
const UnicodeString& FS_KeywordText(int index);
/// Index of a word; 0 for a text that is none. Case counts.
int FS_KeywordIndex(const UnicodeString& text);

}  // namespace QXFontService_NS
