#pragma once

#include <string>
#include <vector>

namespace qxfont {

/// What stands below a folder.
struct FolderContent {
  std::vector<std::string> files;       ///< all that is no folder, in one fixed order
  std::vector<std::string> unreadable;  ///< folders that cannot be listed
};

/// Lists a folder and all below it. Links are followed; a folder that is reached twice, such as
/// by a link in a circle, is listed once.
FolderContent walkFolder(const std::string& folder);

}  // namespace qxfont
