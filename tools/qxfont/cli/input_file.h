#pragma once

#include <string>

namespace qxfont {

/// The content of a text file that the command line names; a byte order mark is left out.
/// @throws ToolError `wrongCall` when it cannot be read or is no UTF-8.
std::string readTextFile(const std::string& path);

}  // namespace qxfont
