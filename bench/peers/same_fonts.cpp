#include "peers/same_fonts.h"

#include "qxfontservice/font_info.h"

#include "harness/listed_faces.h"

namespace qxbench {
namespace {

using namespace QXFontService_NS;

bool isFound(const std::string& family) {
  const UnicodeString name = UnicodeString::fromUTF8(family);
  return !FS_FontInfo::getFontFolderPath(name, 400, false, 0, nullptr, nullptr).isEmpty();
}

/// Fontconfig adds a face a named instance and one for the whole of a variable font.
bool isInstance(const FcPattern* pattern) {
  int index = 0;
  FcBool variable = FcFalse;
  FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
  FcPatternGetBool(pattern, FC_VARIABLE, 0, &variable);
  return index > 0xFFFF || variable == FcTrue;
}

}  // namespace

std::string differenceTo(const FcFontSet& set) {
  std::size_t faces = 0;
  for (int i = 0; i < set.nfont; ++i) {
    if (isInstance(set.fonts[i])) continue;
    ++faces;
    const std::string family = textOf(set.fonts[i], FC_FAMILY);
    if (!isFound(family)) return "family " + family + " is not found";
  }
  const std::size_t ours = listedFaces().size();
  if (ours == faces) return {};
  return std::to_string(ours) + " faces beside " + std::to_string(faces);
}

}  // namespace qxbench
