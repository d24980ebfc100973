#pragma once

#include <string>

#include "qxfont/cli/font_style.h"

namespace qxfont {

/// A font that a document brings along, as the command line names it.
struct DocumentFont {
  std::string file;
  FontStyle style;  ///< under which the document knows it; no font: as the file says itself
};

/// Takes FILE[=FAMILY[:WEIGHT[:italic]]] apart; a text that is a file's path as it stands is that.
/// @throws ToolError `wrongCall` for a style that makes no sense.
DocumentFont parseDocumentFont(const std::string& text);

}  // namespace qxfont
