#pragma once

#include <unicode/unistr.h>

#include <optional>
#include <span>

#include "pool/config/config_words.h"

namespace QXFontService_NS::config {

using icu::UnicodeString;

/// A word that an attribute may hold, with what it stands for.
struct Choice {
  Word word;
  bool value;
};

/// The meaning of `text` among `choices`, compared exactly; nothing for any other text.
std::optional<bool> choose(const UnicodeString& text, std::span<const Choice> choices);

/// "yes", "true", "no", "false" in any case; nothing for any other text.
std::optional<bool> booleanOf(const UnicodeString& text);

/// An integer as the value parser spells them (decimal, or hexadecimal behind 0x).
std::optional<int> integerOf(const UnicodeString& text);

/// Whether the text is the keyword word "true" or "yes" as written: the rule of `recursive`.
bool isAffirmative(const UnicodeString& text);

/// A decimal number, divided by 100 where "%" follows directly; 0 for a text without one.
float ratioOf(const UnicodeString& text);

/// The weight that a word stands for: 700 for one that holds "bold" or "demi", else 400. Not the
/// rule for the weight words of font names: "black" is 400 here.
int weightOfWord(const UnicodeString& text);

/// The usWidthClass that a text with "condensed" or "expanded" stands for, 0 without them.
/// Case-sensitive.
int stretchOf(const UnicodeString& text);

}  // namespace QXFontService_NS::config
