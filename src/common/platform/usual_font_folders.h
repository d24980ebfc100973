#pragma once

#include <string>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS {

/// The folders where systems of the XDG kind keep fonts, each with its closing separator: those of
/// the system, then those of the user, who has none while `HOME` is unset or empty.
std::vector<std::string> usualFontFolders(FS_Platform& platform);

/// The font and metric files of the system: those below `configured`, or, where nothing is
/// configured, below the usual folders. As `listFontFiles` gives them.
std::vector<std::string> listSystemFontFiles(FS_Platform& platform,
                                             const std::vector<std::string>& configured);

}  // namespace QXCommonNS
