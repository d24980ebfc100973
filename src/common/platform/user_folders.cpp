#include "common/platform/user_folders.h"

#include <algorithm>
#include <array>

namespace QXCommonNS {
namespace {

struct UserFolder {
  KnownFolder which;
  const char* variable;
  const char* belowHome;
};

constexpr std::array kUserFolders = {
    UserFolder{KnownFolder::roamingData, "XDG_CONFIG_HOME", "/.config"},
    UserFolder{KnownFolder::localData, "XDG_DATA_HOME", "/.local/share"},
};
constexpr const char* kCommonData = "/usr/share";

std::string withoutClosingSeparator(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

bool userFolder(FS_Platform& platform, const UserFolder& folder, std::string& out) {
  std::string path;
  // A relative path in such a variable is to be ignored, as the XDG rules say.
  if (platform.environment(folder.variable, path) && path.starts_with('/')) {
    out = withoutClosingSeparator(path);
    return true;
  }
  if (!platform.environment("HOME", path) || path.empty()) return false;
  out = withoutClosingSeparator(path) + folder.belowHome;
  return true;
}

}  // namespace

bool xdgFolder(FS_Platform& platform, KnownFolder which, std::string& out) {
  if (which == KnownFolder::commonData) {
    out = kCommonData;
    return true;
  }
  const auto row = std::find_if(kUserFolders.begin(), kUserFolders.end(),
                                [which](const UserFolder& each) { return each.which == which; });
  return row != kUserFolders.end() && userFolder(platform, *row, out);
}

}  // namespace QXCommonNS
