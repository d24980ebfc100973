#include "qxfontservice/ext/versions.h"

#include <expat.h>
#include <ft2build.h>
#include <unicode/uversion.h>
#include <zlib.h>

#include <array>

#ifdef QX_WITH_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif
#include FT_FREETYPE_H

#include "qxcommon/lock.h"

#include "font/contract/font_services.h"

namespace QXFontService_NS::ext {
namespace {

std::string joined(int major, int minor, int patch) {
  return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

std::string icuVersion() {
  UVersionInfo version;
  u_getVersion(version);
  std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
  u_versionToString(version, text.data());
  return text.data();
}

std::string freeTypeVersion() {
  FS_FontServices& services = fontServices();
  const QXMutex guard(&services.renderingLock());
  const FT_Library library = services.freeType();
  if (library == nullptr) return "unusable";
  int major = 0;
  int minor = 0;
  int patch = 0;
  FT_Library_Version(library, &major, &minor, &patch);
  return joined(major, minor, patch);
}

std::string expatVersion() {
  const XML_Expat_Version version = XML_ExpatVersionInfo();
  return joined(version.major, version.minor, version.micro);
}

#ifdef QX_WITH_FONTCONFIG
std::string fontconfigVersion() {
  const int version = FcGetVersion();
  return joined(version / 10000, version / 100 % 100, version % 100);
}
#endif

}  // namespace

std::vector<LibraryVersion> libraryVersions() {
  return {
      {"ICU", icuVersion()},
      {"FreeType", freeTypeVersion()},
      {"zlib", zlibVersion()},
      {"expat", expatVersion()},
#ifdef QX_WITH_FONTCONFIG
      {"fontconfig", fontconfigVersion()},
#endif
  };
}

}  // namespace QXFontService_NS::ext
