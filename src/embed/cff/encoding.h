#pragma once

#include <cstdint>
#include <istream>
#include <vector>

namespace QXFontService_NS::cff {

/// Reads the custom encoding at a stream position: entry n of `codes` is the code of glyph n + 1.
///
/// Format 0 is a list of codes. Every other format byte is taken as ranges, one with the bit of a
/// supplement too, and a supplement is not read: required, since hosts see the codes by
/// `getEncodingScheme`. Codes wrap at 8 bits. False for a short read.
[[nodiscard]] bool readEncoding(std::istream& stream, std::int64_t position,
                                std::vector<unsigned char>& codes);

}  // namespace QXFontService_NS::cff
