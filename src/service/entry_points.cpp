#include <unicode/unistr.h>

#include <vector>

#include "qxcommon/error.h"
#include "qxcommon/uri.h"
#include "qxfontservice/service.h"

#include "pool/config/config_uri.h"
#include "pool/registry/font_registry.h"
#include "pool/registry/opening_watcher.h"
#include "pool/system/system_font_folder.h"
#include "pool/tables/global_lock.h"
#include "service/enumeration.h"

namespace QXFontService_NS {
namespace {

constexpr int kTagLength = 4;
constexpr char16_t kFirstTagUnit = 0x20;
constexpr char16_t kLastTagUnit = 0x7E;

/// The service for every entry but the first: without a configuration's name.
FS_FontRegistry* openService() {
  return FS_FontRegistry::open(nullptr, nullptr);
}

QXError openQuietly(const char* envName) {
  try {
    FS_FontRegistry::open(envName, nullptr);
    return {};
  } catch (const QXError& error) {
    return error;
  }
}

int addFolderQuietly(const QXUri& folder) {
  try {
    // A host need not keep this apart from its lookups: the lock is taken for it.
    const QXMutex guard(&FS_GlobalLock());
    return openService()->addFontFolderPath(folder);
  } catch (const QXError&) {
    return 0;
  }
}

int readError(QXError* out, int index) {
  const QXMutex guard(&FS_GlobalLock());
  const std::vector<QXError>& errors = openService()->errors();
  const int count = static_cast<int>(errors.size());
  if (out == nullptr) return count;
  if (index < 0 || index >= count) return -1;
  *out = errors[static_cast<std::size_t>(index)];
  return index;
}

}  // namespace

FS_ERROR FontServiceOpen(const char* envName, QXError* error) {
  const QXError result = openQuietly(envName);
  opening::passFailure();
  if (error != nullptr) {
    *error = result;
  } else if (result.getErrorCode() != 0) {
    throw QXError(result);
  }
  return static_cast<FS_ERROR>(result.getErrorCode());
}

FS_ERROR FontServiceClose() {
  return FS_ERROR_NONE;
}

UnicodeString FS_GetFontConfigPath(const char* envName, bool evenIfMissing) {
  const QXUri uri = FS_ConfigUri(envName);
  if (uri.isEmpty() || (!evenIfMissing && !uri.isFileExists())) return {};
  return uri.getLocalPath(false);
}

bool FS_GetFontFoldPathVector(const char* envName, std::vector<UnicodeString>& out) {
  out.clear();
  try {
    FS_FontRegistry configuration;
    if (FS_FontRegistry::open(envName, &configuration) == nullptr) return false;
    bool hasAliases = false;
    const FontFolders& folders = configuration.folders();
    for (std::size_t i = 0; i < folders.size(); ++i) {
      out.push_back(folders[i].getLocalPath(false));
      hasAliases = hasAliases || !folders[i].aliases.empty();
    }
    return hasAliases;
  } catch (const QXError&) {
    return false;
  }
}

int FS_AddFontFolderPath(const QXUri& folder) {
  const int count = addFolderQuietly(folder);
  opening::passFailure();
  return count;
}

int FS_EnumFontFamilies(const UnicodeString& family, FS_EnumFontCallback callback, void* user,
                        FS_ExtraFontManager* extra, int /*flags*/) {
  try {
    FS_FontRegistry* registry = openService();
    if (callback == nullptr) return 0;
    return enumerateFonts(*registry, family, {callback, user}, extra);
  } catch (const QXError&) {
    return 1;
  }
}

int FS_GetFontError(QXError* out, int index) {
  try {
    return readError(out, index);
  } catch (const QXError&) {
    return -1;
  }
}

unsigned int toTAG(const UnicodeString& text) {
  if (text.length() > kTagLength) return 0;
  unsigned int tag = 0;
  for (int i = 0; i < kTagLength; ++i) {
    const char16_t unit = i < text.length() ? text.charAt(i) : u' ';
    if (unit < kFirstTagUnit || unit > kLastTagUnit) return 0;
    tag = tag << 8 | unit;
  }
  return tag;
}

UnicodeString getWinFontsPath() {
  return systemFontFolder();
}

}  // namespace QXFontService_NS
