#pragma once

#include <string>

namespace QXCommonNS {

/// The folder of a file as Windows spells its path, with "/" for both separators and one behind
/// it; empty for a bare name.
std::string folderOfWindowsPath(std::string path);

}  // namespace QXCommonNS
