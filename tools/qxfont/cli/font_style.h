#pragma once

#include <string>

namespace qxfont {

/// FONT[:WEIGHT][:italic] as people write it.
struct FontStyle {
  std::string font;
  int weight = 0;  ///< 0: not given
  bool italic = false;
};

/// Takes a weight and "italic" off the end of `text`; the rest is the font, colons and all.
/// @throws ToolError for a text without a font.
FontStyle parseFontStyle(const std::string& text);

}  // namespace qxfont
