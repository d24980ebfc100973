#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "type1/charstrings/charstring_entries.h"

namespace QXFontService_NS::type1 {

/// The glyph names of the codes that a document uses.
class CodeNames {
 public:
  /// Empty when no map knows the code.
  [[nodiscard]] virtual std::string nameOf(unsigned char code) const = 0;

 protected:
  ~CodeNames() = default;
};

/// The codes that a document uses, and what they mean.
struct WantedCodes {
  std::span<const unsigned char> codes;
  const CodeNames* names;
};

/// Marks the glyphs of the codes and, of an accented one, its two parts; those are followed no
/// further.
/// @return how many entries are used, `.notdef` among them.
int markUsedGlyphs(const WantedCodes& wanted, std::vector<CharStringEntry>& entries,
                   const CharStringIndex& index);

/// Copies the private part of a font with the charstrings of the wanted glyphs alone (Adobe Type 1
/// Font Format, chapter 2). Nothing else changes but the count and the line that opens the
/// dictionary.
///
/// @param plain the decrypted private part, the random bytes ahead included.
/// @param output receives the copy behind what it holds; on false some of it may be there.
/// @param wanted none: all glyphs.
/// @return false where the dictionary is missing or opens in another way.
bool rewriteCharStrings(std::string_view plain, std::string& output,
                        const std::optional<WantedCodes>& wanted);

}  // namespace QXFontService_NS::type1
