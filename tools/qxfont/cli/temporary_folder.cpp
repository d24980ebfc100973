#include "qxfont/cli/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "qxfont/cli/status.h"

namespace qxfont {
namespace {

std::string makeFolder() {
  std::error_code failed;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(failed);
  std::string pattern = (failed ? std::filesystem::path("/tmp") : parent) / "qxfont-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) {
    throw ToolError(Status::notWritten, "no temporary folder can be made as " + pattern,
                    "the variable TMPDIR names the folder of temporary files");
  }
  return pattern;
}

}  // namespace

TemporaryFolder::TemporaryFolder()
    : removal_([this] {
        // Not interrupted between making and announcing it.
        const auto held = holdSignals();
        path_ = makeFolder();
        return Removal(path_);
      }()) {}

}  // namespace qxfont
