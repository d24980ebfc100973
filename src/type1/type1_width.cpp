#include "type1/maps/glyph_names.h"
#include "type1/type1.h"

// How wide a text is by the glyph names of its characters.

namespace QXFontService_NS {
namespace {

constexpr int kSpace = 0x20;

}  // namespace

/// By the glyph list; a character that it does not name, by its own glyph name. A name of the list
/// that the metrics lack is missing: the list means to replace the other names.
std::optional<float> FS_Type1::namedWidth(int character) const {
  const std::string* const listed = listedName(character);
  if (listed != nullptr) return widthOfName(*listed);
  const int unicode = isSymbolicFont(0) ? character : type1::unicodeAlternative(character);
  const std::string_view name = type1::glyphNameOf(unicode);
  if (name.empty()) return std::nullopt;
  return widthOfName(name);
}

std::optional<float> FS_Type1::widthOf(int character) const {
  if (directCodes_) return widthOfCode(character);
  const std::optional<float> width = namedWidth(character);
  const bool mayBeCode = isSymbolicFont(0) && character >= 32 && character <= 255;
  return width || !mayBeCode ? width : widthOfCode(character);
}

float FS_Type1::widthByNames(const UnicodeString& text, int* firstMissing) const {
  if (firstMissing != nullptr) *firstMissing = -1;
  const std::string* const space = listedName(kSpace);
  float sum = 0;
  for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    std::optional<float> width = widthOf(folded(text.char32At(i)));
    if (!width) {
      if (firstMissing != nullptr && *firstMissing < 0) *firstMissing = i;
      if (space != nullptr) width = widthOfName(*space);
    }
    sum += width.value_or(0);
  }
  return sum;
}

}  // namespace QXFontService_NS
