#include "common/platform/windows/windows_platform.h"

#include <windows.h>
// After windows.h, which it needs.
#include <shlobj.h>

#include <array>

#include "common/platform/windows/folder_listing.h"
#include "common/platform/windows/registry_values.h"
#include "common/platform/windows/regular_file.h"
#include "common/platform/windows/wide_text.h"
#include "common/platform/windows_path.h"

namespace QXCommonNS {
namespace windows {
namespace {

// The module of this name, else the one that holds this code.
HMODULE moduleOf(std::string_view stem) {
  const std::wstring name = wideOf(stem) + L".dll";
  if (const HMODULE module = ::GetModuleHandleW(name.c_str())) return module;
  HMODULE holder = nullptr;
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  ::GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&moduleOf), &holder);
  return holder;
}

std::wstring fileNameOf(HMODULE module) {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) return name.substr(0, length);
    name.resize(name.size() * 2);
  }
}

}  // namespace

std::unique_ptr<std::istream> WindowsPlatform::openFile(const std::string& path) {
  return openRegularFile(path);
}

FileKind WindowsPlatform::fileKind(const std::string& path) {
  return kindOfPath(path);
}

bool WindowsPlatform::identity(const std::string& path, FileIdentity& out) {
  return identityOfPath(path, out);
}

bool WindowsPlatform::listFolder(const std::string& path, std::vector<FolderEntry>& out) {
  return listEntries(path, out);
}

// The default path: where the folder would be, whether or not the user has moved it.
bool WindowsPlatform::knownFolder(KnownFolder which, std::string& out) {
  std::array<wchar_t, MAX_PATH> path{};
  const HRESULT result = ::SHGetFolderPathW(nullptr, static_cast<int>(which), nullptr,
                                            SHGFP_TYPE_DEFAULT, path.data());
  if (FAILED(result)) return false;
  out = utf8Of(path.data());
  return true;
}

std::vector<std::string> WindowsPlatform::fontFolderCandidates() {
  return {};
}

bool WindowsPlatform::environment(const char* name, std::string& out) {
  if (name == nullptr) return false;
  const std::wstring wideName = wideOf(name);
  std::wstring value(256, L'\0');
  for (;;) {
    ::SetLastError(ERROR_SUCCESS);
    const DWORD length =
        ::GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size()));
    if (length == 0 && ::GetLastError() == ERROR_ENVVAR_NOT_FOUND) return false;
    if (length < value.size()) {
      out = utf8Of(std::wstring_view(value).substr(0, length));
      return true;
    }
    value.resize(length);
  }
}

bool WindowsPlatform::registryValues(RegistryRoot root, std::string_view key,
                                     std::vector<RegistryValue>& out) {
  return readRegistryValues(root, key, out);
}

std::vector<std::string> WindowsPlatform::systemFontFiles() {
  return {};
}

std::string WindowsPlatform::modulePath(std::string_view stem) {
  return folderOfWindowsPath(utf8Of(fileNameOf(moduleOf(stem))));
}

std::string WindowsPlatform::localeName() {
  return {};
}

}  // namespace windows

FS_Platform& nativePlatform() {
  // Never destroyed: streams may be opened while static objects are.
  static FS_Platform& native = *new windows::WindowsPlatform;
  return native;
}

}  // namespace QXCommonNS
