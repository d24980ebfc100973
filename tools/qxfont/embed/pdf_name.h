#pragma once

#include <string>

namespace qxfont {

/// A PostScript name as PDF and PostScript take it: printable ASCII without blanks and delimiters.
std::string pdfName(const std::string& name);

}  // namespace qxfont
