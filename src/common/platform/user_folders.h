#pragma once

#include <string>

#include "common/platform/platform.h"

namespace QXCommonNS {

/// A known folder on systems that keep theirs by the XDG base directories: the user's
/// configuration for `roamingData`, the user's data for `localData`, "/usr/share" for
/// `commonData`; without a closing separator.
/// @return false, with `out` untouched, for other folders and where the user has no home.
bool xdgFolder(FS_Platform& platform, KnownFolder which, std::string& out);

}  // namespace QXCommonNS
