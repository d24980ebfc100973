#pragma once

#include <unicode/unistr.h>

#include <vector>

#include "qxfont/shape/layout_tag.h"

namespace qxfont {

inline constexpr LayoutTag kIsolatedForm = layoutTag("isol");
inline constexpr LayoutTag kInitialForm = layoutTag("init");
inline constexpr LayoutTag kMedialForm = layoutTag("medi");
inline constexpr LayoutTag kFinalForm = layoutTag("fina");

/// The features that give the letters of a cursive script their form beside their neighbours, by
/// the joining types of Unicode (section 9.2, Cursive Joining).
///
/// @param text looked at from its begin to its end, so that a run may be a part of a word.
/// @return for each UTF-16 index at which a character begins, the tag of its form; 0 for one that
///   does not join.
std::vector<LayoutTag> joiningForms(const icu::UnicodeString& text);

}  // namespace qxfont
