#pragma once

#include <string>

#include "qxcommon/uri.h"

namespace qxfont {

/// The path from the root on; as it stands when the current folder is gone.
std::string absolutePath(const std::string& path);

/// The service's name for a path that a person wrote.
QXCommonNS::QXUri uriOfPath(const std::string& path);

/// Whether a FONT argument is a path: it holds a slash, or a file of that name is there.
bool isPath(const std::string& font);

}  // namespace qxfont
