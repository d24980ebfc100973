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
/// @throws ToolError `wrongCall` for a text without a font and for a weight that is none.
FontStyle parseFontStyle(const std::string& text);

}  // namespace qxfont
