#pragma once

#include <vector>

namespace qxfont {

/// A character of a run and where it stands in the text.
struct RunCharacter {
  int codePoint = 0;
  int index = 0;     ///< UTF-16
  int selector = 0;  ///< the variation selector behind it, or 0
};

/// Puts the marks behind each Arabic letter into the order in which fonts combine them: by their
/// combining classes, but shadda first and, before the others, marks that belong to the letter
/// itself (UAX #53, Arabic Mark Rendering). Others stay as they are.
void orderArabicMarks(std::vector<RunCharacter>& characters);

}  // namespace qxfont
