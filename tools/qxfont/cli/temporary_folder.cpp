#include "qxfont/cli/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "qxfont/cli/status.h"

namespace qxfont {

TemporaryFolder::TemporaryFolder() {
  std::error_code failed;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(failed);
  std::string pattern = (failed ? std::filesystem::path("/tmp") : parent) / "qxfont-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) {
    throw ToolError(Status::notWritten, "no temporary folder can be made as " + pattern);
  }
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace qxfont
