#pragma once

#include "qxcommon/mem_stream.h"

namespace QXFontService_NS::embed {

/// Packs an sfnt font as a WOFF 1.0 file (W3C, WOFF File Format 1.0) without metadata and private
/// data: header, directory in the order of the sfnt's, tables deflated where that is shorter.
///
/// Kept, for files already made: the tables follow one another without padding, so that they begin
/// on any byte, `totalSfntSize` is the length of the sfnt as it stands, and all checksums are those
/// of its directory. Strict readers refuse such files; `writeConformingWoff` writes one for them.
///
/// @param out must be empty. @param sfnt is read from its start; its length fits 32 bits.
/// @return true. What `sfnt` is short of goes out as zero bytes.
bool writeWOFF(QXCommonNS::QXMemStream& out, QXCommonNS::QXMemStream& sfnt);

/// The same as strict readers want it: each table begins at a multiple of 4 bytes and is padded
/// with zero bytes, and `totalSfntSize` is the sum that the format asks for.
bool writeConformingWoff(QXCommonNS::QXMemStream& out, QXCommonNS::QXMemStream& sfnt);

}  // namespace QXFontService_NS::embed
