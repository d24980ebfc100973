#pragma once

#include <istream>
#include <memory>
#include <string>

#include "common/platform/platform.h"

namespace QXCommonNS::windows {

/// Opens a regular file of less than 4 GiB; null for anything else. See `FS_Platform::openFile`.
std::unique_ptr<std::istream> openRegularFile(const std::string& path);

/// See `FS_Platform::identity`.
bool identityOfPath(const std::string& path, FileIdentity& out);

}  // namespace QXCommonNS::windows
