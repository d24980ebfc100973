#include "qxfont/cli/text.h"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

namespace qxfont {

std::string utf8(const icu::UnicodeString& text) {
  std::string out;
  return text.toUTF8String(out);
}

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
}

std::string shown(const icu::UnicodeString& text) {
  icu::UnicodeString clean = text;
  for (int i = 0; i < clean.length(); ++i) {
    if (u_iscntrl(clean.charAt(i)) != 0) clean.setCharAt(i, u'\uFFFD');
  }
  return utf8(clean);
}

std::string shown(std::string_view text) {
  return shown(unicode(text));
}

bool isUtf8(std::string_view bytes) {
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8(nullptr, 0, nullptr, bytes.data(), static_cast<int32_t>(bytes.size()), &status);
  return status != U_INVALID_CHAR_FOUND;
}

std::string oneLine(const icu::UnicodeString& message) {
  std::string line = utf8(message);
  while (!line.empty() && line.back() == '\n') line.pop_back();
  for (std::size_t at = line.find('\n'); at != std::string::npos; at = line.find('\n', at)) {
    line.replace(at, 1, ": ");
  }
  return line;
}

std::string codePointName(int codePoint) {
  return fmt::format("U+{:04X}", codePoint);
}

}  // namespace qxfont
