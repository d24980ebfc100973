#include "common/platform/usual_font_folders.h"

#include "common/platform/font_file_walk.h"

namespace QXCommonNS {

std::vector<std::string> usualFontFolders(FS_Platform& platform) {
  std::vector<std::string> folders = {"/usr/share/fonts/", "/usr/local/share/fonts/"};
  std::string home;
  if (platform.environment("HOME", home) && !home.empty()) {
    folders.push_back(home + "/.local/share/fonts/");
    folders.push_back(home + "/.fonts/");
  }
  return folders;
}

std::vector<std::string> listSystemFontFiles(FS_Platform& platform,
                                             const std::vector<std::string>& configured) {
  return listFontFiles(platform, configured.empty() ? usualFontFolders(platform) : configured);
}

}  // namespace QXCommonNS
