#pragma once

#include <string>

#include "qxfont/cli/removal.h"

namespace qxfont {

/// A folder of the tool's own below the system's temporary one, removed with all that stands in
/// it at the end.
class TemporaryFolder {
 public:
  /// @throws ToolError when it cannot be made.
  TemporaryFolder();

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
  Removal removal_;
};

}  // namespace qxfont
