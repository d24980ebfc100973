#pragma once

#include <string>
#include <string_view>

namespace QXCommonNS::uri {

/// The bytes that percent-encoded text stands for (RFC 3986); a percent sign without two
/// hexadecimal digits behind it stands for itself.
std::string decodePercent(std::string_view text);

}  // namespace QXCommonNS::uri
