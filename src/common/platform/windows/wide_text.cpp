#include "common/platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

namespace QXCommonNS::windows {

std::wstring wideOf(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
      L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string utf8Of(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                   nullptr, 0, nullptr, nullptr)),
                    '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
  return bytes;
}

std::wstring widePath(std::string_view path) {
  std::wstring wide = wideOf(path);
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  return wide;
}

}  // namespace QXCommonNS::windows
