#pragma once

#include <string>

namespace qxfont {

/// A folder of the tool's own, removed with all that stands in it at the end.
class TemporaryFolder {
 public:
  /// @throws ToolError when it cannot be made.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace qxfont
