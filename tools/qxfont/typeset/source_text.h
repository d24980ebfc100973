#pragma once

#include <unicode/unistr.h>

#include <optional>
#include <string>
#include <vector>

#include "qxfont/cli/font_style.h"

namespace qxfont {

/// A paragraph of the text to be set.
struct Paragraph {
  std::optional<FontStyle> style;  ///< none: the first font of the command line
  double size = 0;                 ///< points
  icu::UnicodeString text;         ///< one line, however many the file has
  int line = 0;                    ///< where the file asks for its style
};

/// Sizes in points that make sense on a page.
constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 1000;

/// Reads a text: an empty line ends a paragraph, `#font STYLE [SIZE]` changes the style of the
/// paragraphs below it, and `\#` begins a line with a plain `#`.
///
/// Lines of a paragraph are joined by a space; between two wide characters, which have no spaces
/// between words, by nothing. Soft hyphens are left out: no line is broken inside a word.
/// @param text UTF-8.
/// @param file its name, for errors.
/// @param size of paragraphs for which the text asks none.
/// @throws ToolError `wrongCall` for a `#font` line that makes no sense.
std::vector<Paragraph> readSourceText(const std::string& text, const std::string& file,
                                      double size);

/// Whether a number is a size.
bool isSize(double size);

}  // namespace qxfont
