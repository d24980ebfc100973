#include "common/platform/posix/fontconfig_folders.h"

#if defined(QX_WITH_FONTCONFIG)
#include <fontconfig/fontconfig.h>
#endif

#include <memory>

namespace QXCommonNS::posix {

#if defined(QX_WITH_FONTCONFIG)

namespace {

struct ConfigDeleter {
  void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
struct ListDeleter {
  void operator()(FcStrList* list) const { FcStrListDone(list); }
};

// fontconfig's characters are unsigned; its texts here are paths.
std::string pathOf(const FcChar8* text) {
  return static_cast<const char*>(static_cast<const void*>(text));
}

}  // namespace

// The configuration alone: its font set would be scanned for at once, hundreds of times slower.
std::vector<std::string> fontconfigFolders() {
  std::vector<std::string> folders;
  const std::unique_ptr<FcConfig, ConfigDeleter> config(FcInitLoadConfig());
  if (!config) return folders;
  const std::unique_ptr<FcStrList, ListDeleter> list(FcConfigGetFontDirs(config.get()));
  if (!list) return folders;
  while (const FcChar8* folder = FcStrListNext(list.get())) folders.push_back(pathOf(folder));
  return folders;
}

#else

std::vector<std::string> fontconfigFolders() {
  return {};
}

#endif

}  // namespace QXCommonNS::posix
