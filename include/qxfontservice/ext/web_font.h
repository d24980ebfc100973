#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/font_info.h"

namespace QXFontService_NS::ext {

/// Writes a font with the outlines of some glyphs as WOFF 1.0, which browsers and strict readers
/// take.
///
/// `FS_FontInfo::makeWebFont` keeps the bytes that documents have come to rely on, among them
/// tables on any byte and checksums of the font that was cut down. This one packs the font of
/// `makeConformingSubsetFont`: every checksum is right, tables begin at multiples of 4 bytes with
/// zeros between them, and `totalSfntSize` is the sum that the format asks for (W3C, WOFF File
/// Format 1.0). The same call gives the same bytes.
///
/// @param gids glyph ids in any order; FS_NO_GLYPH is passed over.
/// @param out must be empty; stays so on false.
/// @return false for an empty handle, for fonts without an sfnt around them, and for a font that
///   cannot be read whole.
/// What the licence of the font allows is the host's question (`getEmbedStatus`). One thread a
/// font, as the operations that write.
QX_EXPORT bool makeConformingWebFont(const FS_FontInfo& font,
                                     const std::vector<unsigned short>& gids,
                                     QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::ext
