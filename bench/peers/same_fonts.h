#pragma once

#include <string>

#include "peers/fontconfig_peer.h"

namespace qxbench {

/// Why the opened service and fontconfig's set do not know the same fonts: another number of
/// faces, or a family that the service does not find. Empty when they do.
std::string differenceTo(const FcFontSet& set);

}  // namespace qxbench
