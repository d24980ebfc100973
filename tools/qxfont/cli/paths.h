#pragma once

#include <string>

#include "qxcommon/uri.h"

namespace qxfont {

/// The path from the root on; as it stands when the current folder is gone.
std::string absolutePath(const std::string& path);

/// The service's name for a path that a person wrote.
QXCommonNS::QXUri uriOfPath(const std::string& path);

}  // namespace qxfont
