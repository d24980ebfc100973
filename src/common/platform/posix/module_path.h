#pragma once

#include <string>
#include <string_view>

namespace QXCommonNS::posix {

/// See `FS_Platform::modulePath`.
std::string moduleFolder(std::string_view stem);

/// Whether a loaded object's base name is that of the module `stem`: "stem.so" or "libstem.so",
/// either with a version behind it.
bool isModuleName(std::string_view baseName, std::string_view stem);

}  // namespace QXCommonNS::posix
