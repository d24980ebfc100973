#include "peers/free_type_font.h"

#include FT_OUTLINE_H

namespace qxbench {
namespace {

/// FreeType takes bytes as unsigned characters; the one cast between them.
const FT_Byte* ftBytes(std::string_view bytes) {
  return static_cast<const FT_Byte*>(static_cast<const void*>(bytes.data()));
}

}  // namespace

FreeTypeFont::FreeTypeFont(std::string_view bytes) {
  if (FT_Init_FreeType(&library_) != 0) return;
  const auto size = static_cast<FT_Long>(bytes.size());
  if (FT_New_Memory_Face(library_, ftBytes(bytes), size, 0, &face_) != 0) face_ = nullptr;
}

FreeTypeFont::~FreeTypeFont() {
  if (face_ != nullptr) FT_Done_Face(face_);
  if (library_ != nullptr) FT_Done_FreeType(library_);
}

std::string FreeTypeFont::outlineOf(unsigned glyph) const {
  if (face_ == nullptr || FT_Load_Glyph(face_, glyph, FT_LOAD_NO_SCALE) != 0) return "none";
  const FT_Outline& outline = face_->glyph->outline;
  std::string text;
  for (int i = 0; i < outline.n_points; ++i) {
    text += std::to_string(outline.points[i].x) + "," + std::to_string(outline.points[i].y) + "," +
            std::to_string(outline.tags[i] & 3) + ";";
  }
  for (int i = 0; i < outline.n_contours; ++i) text += std::to_string(outline.contours[i]) + "|";
  return text;
}

}  // namespace qxbench
