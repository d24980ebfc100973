#pragma once

#include <string_view>
#include <vector>

#include "common/platform/platform.h"

namespace QXCommonNS::windows {

/// See `FS_Platform::registryValues`.
bool readRegistryValues(RegistryRoot root, std::string_view key, std::vector<RegistryValue>& out);

}  // namespace QXCommonNS::windows
