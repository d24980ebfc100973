#pragma once

#include <unicode/unistr.h>

namespace QXCommonNS {

/// `text` in lower or upper case by the rules of no particular language.
///
/// The answers are ICU's for the root locale. Text of ASCII alone, which names of fonts and files
/// nearly always are, is changed here: ICU's way through its case data costs ten times as much,
/// and a scan asks for thousands. Any thread.
icu::UnicodeString lowerCase(icu::UnicodeString text);
icu::UnicodeString upperCase(icu::UnicodeString text);

}  // namespace QXCommonNS
