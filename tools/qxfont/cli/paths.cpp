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

}  // namespace qxfont
