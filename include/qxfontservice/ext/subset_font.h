#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxcommon/mem_stream.h"
#include "qxfontservice/font_info.h"

namespace QXFontService_NS::ext {

/// Writes a font with all tables and the outlines of some glyphs, which strict readers take.
///
/// The same glyphs and ids as `FS_FontInfo::makeSubsetFont`, whose bytes documents have come to
/// rely on; but every checksum is right, tables and glyphs stand where their formats ask for, and
/// offsets of a `CFF ` table are made anew. Glyphs that are not asked for stay as empty ones,
/// `.notdef` and the parts of composites excepted. `DSIG`, which signs the whole font, is left out
/// (OpenType font file; Adobe Technical Note 5176). The same call gives the same bytes.
///
/// @param gids glyph ids in any order; FS_NO_GLYPH is passed over.
/// @param out must be empty; stays so on false.
/// @return false for an empty handle, for fonts without an sfnt around them, and for a font that
///   cannot be read whole: what strict readers would refuse anyway is not written.
/// What the licence of the font allows is the host's question (`getEmbedStatus`). One thread a
/// font, as the operations that write.
QX_EXPORT bool makeConformingSubsetFont(const FS_FontInfo& font,
                                        const std::vector<unsigned short>& gids,
                                        QXCommonNS::QXMemStream& out);

}  // namespace QXFontService_NS::ext
