#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "common/platform/platform.h"

namespace qxtest {

/// The keys of a registry text by their lower-cased path, root included; see
/// `MemoryPlatform::registry`.
std::map<std::string, std::vector<QXCommonNS::RegistryValue>> readRegistryText(
    std::string_view text);

/// `text` in ASCII lower case: registry keys are looked up without case.
std::string loweredKey(std::string_view text);

}  // namespace qxtest
