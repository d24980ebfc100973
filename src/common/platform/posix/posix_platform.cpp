#include "common/platform/posix/posix_platform.h"

#include <cstdlib>

#include "common/platform/posix/folder_listing.h"
#include "common/platform/posix/fontconfig_folders.h"
#include "common/platform/posix/module_path.h"
#include "common/platform/posix/regular_file.h"
#include "common/platform/user_folders.h"
#include "common/platform/usual_font_folders.h"

namespace QXCommonNS {
namespace posix {

std::unique_ptr<std::istream> PosixPlatform::openFile(const std::string& path) {
  return openRegularFile(path);
}

FileKind PosixPlatform::fileKind(const std::string& path) {
  return kindOfPath(path);
}

bool PosixPlatform::identity(const std::string& path, FileIdentity& out) {
  return identityOfPath(path, out);
}

bool PosixPlatform::listFolder(const std::string& path, std::vector<FolderEntry>& out) {
  return listEntries(path, out);
}

bool PosixPlatform::knownFolder(KnownFolder which, std::string& out) {
  return xdgFolder(*this, which, out);
}

std::vector<std::string> PosixPlatform::fontFolderCandidates() {
  return usualFontFolders(*this);
}

bool PosixPlatform::environment(const char* name, std::string& out) {
  const char* value = name != nullptr ? std::getenv(name) : nullptr;
  if (value == nullptr) return false;
  out = value;
  return true;
}

bool PosixPlatform::registryValues(RegistryRoot, std::string_view,
                                   std::vector<RegistryValue>& out) {
  out.clear();
  return false;
}

std::vector<std::string> PosixPlatform::systemFontFiles() {
  return listSystemFontFiles(*this, fontconfigFolders());
}

std::string PosixPlatform::modulePath(std::string_view stem) {
  return moduleFolder(stem);
}

std::string PosixPlatform::localeName() {
  return {};
}

}  // namespace posix

FS_Platform& nativePlatform() {
  // Never destroyed: streams may be opened while static objects are.
  static FS_Platform& native = *new posix::PosixPlatform;
  return native;
}

}  // namespace QXCommonNS
