#include "qxfont/cli/document_font.h"

#include <filesystem>
#include <system_error>

namespace qxfont {

DocumentFont parseDocumentFont(const std::string& text) {
  std::error_code ignored;
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || std::filesystem::is_regular_file(text, ignored)) {
    return {text, {}};
  }
  return {text.substr(0, equals), parseFontStyle(text.substr(equals + 1))};
}

}  // namespace qxfont
