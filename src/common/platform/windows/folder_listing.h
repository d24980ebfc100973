#pragma once

#include <string>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS::windows {

/// What `path` leads to.
FileKind kindOfPath(const std::string& path);
/// See `FS_Platform::listFolder`.
bool listEntries(const std::string& path, std::vector<FolderEntry>& out);

}  // namespace QXCommonNS::windows
