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

int weightOf(const std::string& number, const std::string& style) {
  const int weight = std::stoi(number);
  if (weight >= 1 && weight <= 1000) return weight;
  throw ToolError(Status::wrongCall,
                  "the weight " + number + " in the style '" + style + "' is not from 1 to 1000");
}

}  // namespace

FontStyle parseFontStyle(const std::string& text) {
  FontStyle style{text};
  for (std::size_t colon = style.font.rfind(':'); colon != std::string::npos;
       colon = style.font.rfind(':')) {
    const std::string part = style.font.substr(colon + 1);
    if (part == "italic" && !style.italic) {
      style.italic = true;
    } else if (isNumber(part) && style.weight == 0) {
      style.weight = weightOf(part, text);
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
