#pragma once

#include <string>

namespace qxfont {

/// What people call the kind of a font file, from the number that the service has for it.
std::string fileTypeName(int type);

}  // namespace qxfont
