#pragma once

#include <istream>
#include <memory>
#include <string>

namespace QXCommonNS::posix {

/// Opens a regular file of less than 4 GiB; null for anything else. See `FS_Platform::openFile`.
std::unique_ptr<std::istream> openRegularFile(const std::string& path);

}  // namespace QXCommonNS::posix
