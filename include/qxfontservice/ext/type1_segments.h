#pragma once

#include <istream>

#include "qxcommon/export.h"
#include "qxcommon/mem_stream.h"

namespace QXFontService_NS::ext {

/// Takes the segment headers out of a Type 1 font program, as PDF's `FontFile` wants it.
///
/// `FS_FontInfo::getType1EmbedFont` and `getType1FontStream` write segments (Adobe Technical Note
/// 5040), each with six bytes ahead, and a mark at the end. Documents take the bytes alone: clear
/// text, private part, trailer, whose lengths are `Length1` to `Length3` of ISO 32000-1, 9.9.
///
/// @param program read from its beginning; not changed but for its state and position.
/// @param out must be empty; receives the bytes. Neighbouring segments of one kind become one part.
/// @param length1,length2,length3 told the bytes of the three parts; the last may be 0.
/// @return false, with `out` and the lengths untouched, for anything but a clear text, a private
///   part and at most one more text, all there, with the end mark behind them.
/// Any thread; the streams are the caller's.
QX_EXPORT bool removeType1Segments(std::istream& program, QXCommonNS::QXMemStream& out,
                                   int& length1, int& length2, int& length3);

}  // namespace QXFontService_NS::ext
