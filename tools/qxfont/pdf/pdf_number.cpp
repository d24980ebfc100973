#include "qxfont/pdf/pdf_number.h"

#include <fmt/format.h>

namespace qxfont {

std::string pdfNumber(double value) {
  std::string text = fmt::format("{:.3f}", value);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

}  // namespace qxfont
