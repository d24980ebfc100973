#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <string>
#include <string_view>

namespace qxbench {

/// A FreeType face over bytes that outlive it; null where FreeType does not open them.
class FreeTypeFont {
 public:
  explicit FreeTypeFont(std::string_view bytes);
  FreeTypeFont(const FreeTypeFont&) = delete;
  FreeTypeFont& operator=(const FreeTypeFont&) = delete;
  ~FreeTypeFont();

  [[nodiscard]] FT_Face face() const { return face_; }

  /// The outline of a glyph in font units, as text; "none" where it does not load.
  [[nodiscard]] std::string outlineOf(unsigned glyph) const;

 private:
  FT_Library library_ = nullptr;
  FT_Face face_ = nullptr;
};

}  // namespace qxbench
