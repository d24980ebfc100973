#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qxfont/cli/removal.h"

namespace qxfont {

/// The files that a command writes. Each is written beside its place and moved there by `commit`,
/// all of them or none, so that a failure leaves no output.
class OutputFiles {
 public:
  /// Adds a file.
  /// @throws ToolError `notWritten`, as the others do.
  void add(const std::string& path, std::string_view bytes);
  /// Adds a folder, which must not be there yet, or be empty.
  void addFolder(const std::string& path);
  /// Adds a file in the folder that was added last.
  void addToFolder(const std::string& name, std::string_view bytes);

  /// Moves everything to its place. Call it when nothing else can fail.
  void commit();

 private:
  struct Part {
    std::string path;
    std::string target;
    Removal removal;
  };

  std::vector<Part> parts_;
};

}  // namespace qxfont
