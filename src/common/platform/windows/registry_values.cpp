#include "common/platform/windows/registry_values.h"

#include <windows.h>

#include <string>

#include "common/platform/windows/wide_text.h"

namespace QXCommonNS::windows {
namespace {

class RegistryKey {
 public:
  RegistryKey(HKEY root, const std::wstring& path) {
    if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }
  [[nodiscard]] HKEY key() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

// The longest name of a value, in characters with its closing zero.
DWORD longestName(HKEY key) {
  DWORD longest = 0;
  ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &longest,
                     nullptr, nullptr, nullptr);
  return longest + 1;
}

// The length comes first, since the value may grow in between: then it is left out.
bool readData(HKEY key, const std::wstring& name, RegistryValue& value) {
  DWORD type = 0;
  DWORD size = 0;
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
    return false;
  value.data.resize(size);
  BYTE* data = static_cast<BYTE*>(static_cast<void*>(value.data.data()));
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &type, data, &size) != ERROR_SUCCESS)
    return false;
  value.type = type;
  value.data.resize(size);
  return true;
}

}  // namespace

bool readRegistryValues(RegistryRoot root, std::string_view key, std::vector<RegistryValue>& out) {
  out.clear();
  const RegistryKey opened(
      root == RegistryRoot::localMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, wideOf(key));
  if (opened.key() == nullptr) return false;
  std::wstring name(longestName(opened.key()), L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD length = static_cast<DWORD>(name.size());
    const LSTATUS status = ::RegEnumValueW(opened.key(), index, name.data(), &length, nullptr,
                                           nullptr, nullptr, nullptr);
    if (status == ERROR_MORE_DATA) continue;  // a name that came meanwhile
    if (status != ERROR_SUCCESS) return true;
    RegistryValue value;
    const std::wstring valueName(name, 0, length);
    value.name.assign(valueName.begin(), valueName.end());
    if (readData(opened.key(), valueName, value)) out.push_back(std::move(value));
  }
}

}  // namespace QXCommonNS::windows
