#pragma once

#include <string>
#include <vector>

namespace qxfont {

/// A document, ready to be written.
struct HtmlDocument {
  std::string title;  ///< UTF-8, as it is read
  std::string generator;
  double width = 0;  ///< of the pages, in points
  double height = 0;
  std::vector<std::string> pages;     ///< of `htmlPage`
  std::vector<std::string> webFonts;  ///< WOFF files
};

/// The document, fonts included (HTML; CSS Fonts Level 4): the same document gives the same bytes.
/// Nothing is fetched when it is shown, and no font of the reader's is wanted.
std::string htmlBytes(const HtmlDocument& document);

}  // namespace qxfont
