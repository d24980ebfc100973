#include "common/platform/windows/folder_listing.h"

#include <windows.h>

#include <string_view>

#include "common/platform/windows/wide_text.h"

namespace QXCommonNS::windows {
namespace {

class Listing {
 public:
  explicit Listing(const std::wstring& pattern)
      : handle_(::FindFirstFileW(pattern.c_str(), &entry_)) {}
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;
  ~Listing() {
    if (isOpen()) ::FindClose(handle_);
  }
  [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] const WIN32_FIND_DATAW& entry() const { return entry_; }
  bool next() { return ::FindNextFileW(handle_, &entry_) != 0; }

 private:
  WIN32_FIND_DATAW entry_{};
  HANDLE handle_;
};

FileKind kindOfAttributes(DWORD attributes) {
  if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::none;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FileKind::folder;
  return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? FileKind::other : FileKind::regular;
}

FolderEntry entryOf(const WIN32_FIND_DATAW& data) {
  const DWORD attributes = data.dwFileAttributes;
  return {utf8Of(data.cFileName), kindOfAttributes(attributes),
          (attributes & FILE_ATTRIBUTE_HIDDEN) != 0, (attributes & FILE_ATTRIBUTE_SYSTEM) != 0};
}

// A name that is not UTF-16 could not be opened again: half a surrogate pair comes back as U+FFFD.
bool isListed(std::wstring_view name) {
  return name != L"." && name != L".." && wideOf(utf8Of(name)) == name;
}

std::wstring patternFor(const std::string& folder) {
  const bool closed = !folder.empty() && (folder.back() == '/' || folder.back() == '\\');
  return widePath(folder) + (closed ? L"*.*" : L"\\*.*");
}

}  // namespace

FileKind kindOfPath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return FileKind::none;
  return kindOfAttributes(::GetFileAttributesW(widePath(path).c_str()));
}

bool listEntries(const std::string& path, std::vector<FolderEntry>& out) {
  out.clear();
  if (path.find('\0') != std::string::npos) return false;
  Listing listing(patternFor(path));
  if (!listing.isOpen()) return false;
  do {
    if (isListed(listing.entry().cFileName)) out.push_back(entryOf(listing.entry()));
  } while (listing.next());
  return true;
}

}  // namespace QXCommonNS::windows
