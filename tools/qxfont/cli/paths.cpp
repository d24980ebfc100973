#include "qxfont/cli/paths.h"

#include <filesystem>
#include <system_error>

#include "qxfont/cli/text.h"

namespace qxfont {

std::string absolutePath(const std::string& path) {
  std::error_code failed;
  const auto absolute = std::filesystem::absolute(path, failed).lexically_normal();
  return failed ? path : absolute.string();
}

QXCommonNS::QXUri uriOfPath(const std::string& path) {
  return {unicode(absolutePath(path)), QXCommonNS::URISTR_USER};
}

bool isPath(const std::string& font) {
  std::error_code ignored;
  return font.find('/') != std::string::npos || std::filesystem::is_regular_file(font, ignored);
}

}  // namespace qxfont
