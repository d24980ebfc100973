#include "qxfont/cli/font_style.h"

#include <algorithm>
#include <cctype>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

bool isNumber(const std::string& text) {
  return !text.empty() && text.size() <= 4 &&
         std::all_of(text.begin(), text.end(),
                     [](unsigned char c) { return std::isdigit(c) != 0; });
}

}  // namespace

FontStyle parseFontStyle(const std::string& text) {
  FontStyle style{text, 0, false};
  for (std::size_t colon = style.font.rfind(':'); colon != std::string::npos;
       colon = style.font.rfind(':')) {
    const std::string part = style.font.substr(colon + 1);
    if (part == "italic" && !style.italic) {
      style.italic = true;
    } else if (isNumber(part) && style.weight == 0) {
      style.weight = std::stoi(part);
    } else {
      break;
    }
    style.font.resize(colon);
  }
  if (style.font.empty()) {
    throw ToolError(Status::wrongCall, "no font in the style '" + text + "'",
                    "a style is FONT[:WEIGHT][:italic]");
  }
  return style;
}

}  // namespace qxfont
