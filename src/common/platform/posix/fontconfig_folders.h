#pragma once

#include <string>
#include <vector>

namespace QXCommonNS::posix {

/// The font folders of fontconfig's configuration; empty in a build without it, and when it has
/// no configuration.
std::vector<std::string> fontconfigFolders();

}  // namespace QXCommonNS::posix
