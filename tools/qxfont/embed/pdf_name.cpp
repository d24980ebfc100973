#include "qxfont/embed/pdf_name.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qxfont {

std::string pdfName(const std::string& name) {
  constexpr std::string_view kDelimiters = "()<>[]{}/%#";
  std::string usable;
  std::copy_if(name.begin(), name.end(), std::back_inserter(usable), [&](char c) {
    return c > ' ' && c < 0x7F && kDelimiters.find(c) == std::string_view::npos;
  });
  return usable;
}

}  // namespace qxfont
