#pragma once

#include <map>
#include <string>
#include <string_view>

namespace QXFontService_NS::type1 {

/// The charstrings of a font program, decrypted, as a reader of PostScript tokens finds them: not
/// only where a writer of subsets looks for them.
struct ProgramCharStrings {
  std::map<int, std::string> subrs;
  std::multimap<std::string, std::string, std::less<>> glyphs;  ///< a name may be there twice
  /// False where something is odd: what is not found here may be in the program all the same.
  bool isSound = true;
};

/// Finds the charstrings of a program (Adobe Type 1 Font Format, chapters 2 and 7).
/// @param clearText may define what the private part defines.
/// @param privatePart decrypted.
ProgramCharStrings findCharStrings(std::string_view clearText, std::string_view privatePart);

}  // namespace QXFontService_NS::type1
