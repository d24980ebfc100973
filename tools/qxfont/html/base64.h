#pragma once

#include <string>
#include <string_view>

namespace qxfont {

/// Bytes as text (RFC 4648, chapter 4), padded and without line ends.
std::string base64(std::string_view bytes);

}  // namespace qxfont
