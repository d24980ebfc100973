#include "qxfont/shape/joining.h"

#include <unicode/uchar.h>

namespace qxfont {
namespace {

UJoiningType joiningType(int codePoint) {
  return static_cast<UJoiningType>(u_getIntPropertyValue(codePoint, UCHAR_JOINING_TYPE));
}

// Text runs from first to last here, whichever way it is shown: a letter joins the one before it,
// which the standard calls its right side, and the one behind it.
bool joinsBefore(UJoiningType type) {
  return type == U_JT_DUAL_JOINING || type == U_JT_RIGHT_JOINING || type == U_JT_JOIN_CAUSING;
}
bool joinsBehind(UJoiningType type) {
  return type == U_JT_DUAL_JOINING || type == U_JT_LEFT_JOINING || type == U_JT_JOIN_CAUSING;
}

LayoutTag formOf(bool before, bool behind) {
  if (before) return behind ? kMedialForm : kFinalForm;
  return behind ? kInitialForm : kIsolatedForm;
}

struct Letter {
  int index;
  UJoiningType type;
};

/// The characters that count for joining: transparent ones stand aside.
std::vector<Letter> lettersOf(const icu::UnicodeString& text) {
  std::vector<Letter> letters;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UJoiningType type = joiningType(text.char32At(i));
    if (type != U_JT_TRANSPARENT) letters.push_back({i, type});
  }
  return letters;
}

}  // namespace

std::vector<LayoutTag> joiningForms(const icu::UnicodeString& text) {
  std::vector<LayoutTag> forms(static_cast<std::size_t>(text.length()), 0);
  const std::vector<Letter> letters = lettersOf(text);
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const UJoiningType type = letters[i].type;
    if (type == U_JT_NON_JOINING || type == U_JT_JOIN_CAUSING) continue;
    const bool before = joinsBefore(type) && i > 0 && joinsBehind(letters[i - 1].type);
    const bool behind =
        joinsBehind(type) && i + 1 < letters.size() && joinsBefore(letters[i + 1].type);
    forms[static_cast<std::size_t>(letters[i].index)] = formOf(before, behind);
  }
  return forms;
}

}  // namespace qxfont
