#include "qxfont/cli/text.h"

#include <fmt/format.h>

namespace qxfont {

std::string utf8(const icu::UnicodeString& text) {
  std::string out;
  return text.toUTF8String(out);
}

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
}

std::string oneLine(const icu::UnicodeString& message) {
  std::string line = utf8(message);
  while (!line.empty() && line.back() == '\n') line.pop_back();
  for (std::size_t at = line.find('\n'); at != std::string::npos; at = line.find('\n', at)) {
    line.replace(at, 1, ": ");
  }
  return line;
}

std::string codePointName(int codePoint) { return fmt::format("U+{:04X}", codePoint); }

}  // namespace qxfont
