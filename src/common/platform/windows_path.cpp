#include "common/platform/windows_path.h"

#include <algorithm>

namespace QXCommonNS {

std::string folderOfWindowsPath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  path.resize(path.rfind('/') + 1);  // nothing where there is none
  return path;
}

}  // namespace QXCommonNS
