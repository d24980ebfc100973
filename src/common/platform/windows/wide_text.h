#pragma once

#include <string>
#include <string_view>

namespace QXCommonNS::windows {

/// UTF-8 as the UTF-16 of the system, and back; damaged text gives U+FFFD.
std::wstring wideOf(std::string_view text);
std::string utf8Of(std::wstring_view text);

/// A path of the system from one with `/` as separator.
std::wstring widePath(std::string_view path);

}  // namespace QXCommonNS::windows
