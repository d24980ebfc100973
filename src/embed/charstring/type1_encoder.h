#pragma once

#include <ostream>
#include <string>

#include "embed/charstring/tokens.h"

namespace QXFontService_NS::charstring {

/// The plain bytes of a Type 1 charstring (Adobe Type 1 Font Format, chapter 6). A real is cut to
/// an integer; a keyword that is no Type 1 operator writes nothing.
[[nodiscard]] std::string type1Bytes(const FS_CharStringTokens& tokens);

/// Encrypts charstring bytes in place, with no random bytes before them (`/lenIV 0`).
void encryptCharString(std::string& bytes);

/// Encodes, encrypts and appends.
void encodeCharString(const FS_CharStringTokens& tokens, std::ostream& out);

}  // namespace QXFontService_NS::charstring
