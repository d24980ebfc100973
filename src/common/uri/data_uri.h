#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace QXCommonNS::uri {

struct DataContent {
  std::string mediaType;  ///< lower-cased, without parameters; "text/plain" when none is given
  std::string bytes;
};

/// What a `data:` URI holds (RFC 2397), in base64 or percent form. `text` is the whole URI in
/// UTF-8; a fragment behind it is left out. Nothing for a URI without a comma, or with base64 that
/// is damaged; blanks in base64 and missing padding are let pass, as documents break long lines.
std::optional<DataContent> readDataUri(std::string_view text);

/// The bytes of base64 text (RFC 4648, the standard alphabet); nothing when it is damaged.
std::optional<std::string> decodeBase64(std::string_view text);

}  // namespace QXCommonNS::uri
