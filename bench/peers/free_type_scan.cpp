#include "peers/free_type_scan.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_TABLES_H

#include "harness/alternate.h"

namespace qxbench {
namespace {

void takeNames(FT_Face face) {
  const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
  for (FT_UInt i = 0; i < count; ++i) {
    FT_SfntName name;
    if (FT_Get_Sfnt_Name(face, i, &name) != 0) continue;
    std::u16string text;
    for (FT_UInt at = 0; at + 1 < name.string_len; at += 2)
      text += static_cast<char16_t>(name.string[at] << 8 | name.string[at + 1]);
    keep(text.size());
  }
}

void takeStyle(FT_Face face) {
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  keep(os2 != nullptr ? os2->usWeightClass : 0U);
}

std::size_t scanFile(FT_Library library, const std::string& file) {
  std::size_t faces = 0;
  FT_Long count = 1;
  for (FT_Long i = 0; i < count; ++i) {
    FT_Face face = nullptr;
    if (FT_New_Face(library, file.c_str(), i, &face) != 0) break;
    count = face->num_faces;
    takeNames(face);
    takeStyle(face);
    FT_Done_Face(face);
    ++faces;
  }
  return faces;
}

}  // namespace

std::size_t scanWithFreeType(const Paths& files) {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return 0;
  std::size_t faces = 0;
  for (const std::string& file : files) faces += scanFile(library, file);
  FT_Done_FreeType(library);
  return faces;
}

}  // namespace qxbench
