#include "common/platform/posix/folder_listing.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unicode/ustring.h>

#include <memory>
#include <string_view>

namespace QXCommonNS::posix {
namespace {

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

FileKind kindOfMode(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::regular;
  return S_ISDIR(mode) ? FileKind::folder : FileKind::other;
}

// Only links, and file systems that do not tell, cost a call of their own.
FileKind kindOfEntry(DIR* folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return FileKind::regular;
  if (entry.d_type == DT_DIR) return FileKind::folder;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return FileKind::other;
  struct stat status {};
  if (::fstatat(::dirfd(folder), entry.d_name, &status, 0) != 0) return FileKind::none;
  return kindOfMode(status.st_mode);
}

bool isUtf8(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t length = 0;
  u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<std::int32_t>(text.size()), &status);
  return status == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(status);
}

// A name that is not UTF-8 could not be opened again.
bool isListed(std::string_view name) {
  return name != "." && name != ".." && isUtf8(name);
}

bool statusOf(const std::string& path, struct stat& out) {
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &out) == 0;
}

}  // namespace

FileKind kindOfPath(const std::string& path) {
  struct stat status {};
  return statusOf(path, status) ? kindOfMode(status.st_mode) : FileKind::none;
}

bool identityOfPath(const std::string& path, FileIdentity& out) {
  struct stat status {};
  if (!statusOf(path, status)) return false;
  out.device = static_cast<std::uint64_t>(status.st_dev);
  out.node = static_cast<std::uint64_t>(status.st_ino);
  return true;
}

bool listEntries(const std::string& path, std::vector<FolderEntry>& out) {
  out.clear();
  if (path.find('\0') != std::string::npos) return false;
  const OpenFolder folder(::opendir(path.c_str()));
  if (!folder) return false;
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name(entry->d_name);
    if (!isListed(name)) continue;
    out.push_back({std::string(name), kindOfEntry(folder.get(), *entry), name[0] == '.', false});
  }
  return true;
}

}  // namespace QXCommonNS::posix
