#pragma once

#include <string>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS {

/// The font and metric files below `folders`: absolute paths, each once, sorted by UTF-16 code
/// units.
///
/// Folders are walked recursively and links are followed; hidden and system folders are passed
/// over, and so is a folder that is one of its own ancestors. Hidden files count, system files
/// do not. Folders that cannot be listed give nothing.
std::vector<std::string> listFontFiles(FS_Platform& platform,
                                       const std::vector<std::string>& folders);

}  // namespace QXCommonNS
