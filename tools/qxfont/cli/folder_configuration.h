#pragma once

#include <string>
#include <vector>

namespace qxfont {

/// A configuration of nothing but these folders, each once and with its subfolders.
std::string folderConfiguration(const std::vector<std::string>& folders);

}  // namespace qxfont
