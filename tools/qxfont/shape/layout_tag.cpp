#include "qxfont/shape/layout_tag.h"

#include <fmt/format.h>

#include <algorithm>

#include "qxfont/cli/status.h"
#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

bool isPrintable(char letter) {
  return letter >= ' ' && letter <= '~';
}

}  // namespace

std::string tagText(LayoutTag tag) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) {
    const char letter = static_cast<char>(tag >> shift & 0xFF);
    text += isPrintable(letter) ? letter : '?';
  }
  return text;
}

LayoutTag parseTag(const std::string& text, const std::string& what) {
  const bool sound =
      !text.empty() && text.size() <= 4 && std::all_of(text.begin(), text.end(), isPrintable);
  if (!sound) {
    throw ToolError(
        Status::wrongCall,
        fmt::format("{} is a tag of one to four letters, and this is none: {}", what, shown(text)));
  }
  return layoutTag(text);
}

std::vector<LayoutTag> parseTags(const std::string& text, const std::string& what) {
  std::vector<LayoutTag> tags;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    tags.push_back(parseTag(text.substr(begin, end - begin), what));
    begin = end + 1;
  }
  return tags;
}

}  // namespace qxfont
