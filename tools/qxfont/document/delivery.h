#pragma once

#include <set>
#include <string>
#include <vector>

#include "qxfont/document/document_writer.h"
#include "qxfont/typeset/font_set.h"
#include "qxfont/typeset/page.h"

namespace qxfont {

/// How a command hands its document over.
struct Delivery {
  std::string out;  ///< the file
  DocumentKind kind = DocumentKind::pdf;
  DocumentFrame frame;
  bool allowRestricted = false;
  bool json = false;
  std::string missingHint;  ///< what would help where no font has a character
};

/// Holds the fonts of the pages against their licences, writes the document, tells what it has:
/// pages, fonts, the characters that no font had. The file is there only when all of that is done.
/// @throws ToolError `notAllowed`, `notWritten`, and as `writeDocument`.
void deliver(const Delivery& delivery, const std::vector<Page>& pages, const FontSet& fonts,
             const std::set<int>& missing);

}  // namespace qxfont
