#pragma once

#include <optional>
#include <string>

#include "common/bytes/byte_view.h"

namespace QXFontService_NS::names {

using QXCommonNS::bytes::ByteView;

/// Whether Macintosh strings of this encoding are read: Roman, Japanese, the two Chinese, Korean.
bool isMacintoshEncoding(unsigned encodingID);

/// Decodes a string of platform 1; empty for an encoding that is not read.
std::u16string decodeMacintosh(unsigned encodingID, ByteView text);

/// Decodes a string of platform 3, encodings 0 to 5. An odd last byte is dropped.
///
/// Nothing where a UTF-16 string holds a control character: the mark of a legacy encoding that
/// claims to be Unicode. Kept, although it also voids honest texts with line feeds: hosts rely on
/// names without them.
std::optional<std::u16string> decodeWindows(unsigned encodingID, ByteView text);

}  // namespace QXFontService_NS::names
