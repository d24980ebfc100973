#pragma once

#include <string>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS::posix {

/// What `path` leads to, links followed.
FileKind kindOfPath(const std::string& path);
/// See `FS_Platform::identity`.
bool identityOfPath(const std::string& path, FileIdentity& out);
/// See `FS_Platform::listFolder`. A name that begins with a point is hidden; nothing is a system
/// file here.
bool listEntries(const std::string& path, std::vector<FolderEntry>& out);

}  // namespace QXCommonNS::posix
