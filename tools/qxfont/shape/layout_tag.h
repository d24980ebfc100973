#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qxfont {

/// A tag of OpenType layout, the first letter in the top byte.
using LayoutTag = unsigned int;

/// The tag of four letters; fewer are filled up with spaces.
constexpr LayoutTag layoutTag(std::string_view letters) {
  LayoutTag tag = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const char letter = i < letters.size() ? letters[i] : ' ';
    tag = tag << 8 | static_cast<unsigned char>(letter);
  }
  return tag;
}

/// The four letters of a tag; bytes that are no printable ASCII become '?'.
std::string tagText(LayoutTag tag);

/// A tag as it is given on a command line.
/// @param what it names, for the error.
/// @throws ToolError `wrongCall` unless it is one to four printable ASCII characters.
LayoutTag parseTag(const std::string& text, const std::string& what);

/// Tags with commas between them.
std::vector<LayoutTag> parseTags(const std::string& text, const std::string& what);

}  // namespace qxfont
