#pragma once

#include "qxfontservice/font_file_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

class FS_BaseFont;
class FS_FontFolder;

/// Makes the font object of a file with sfnt data, packed ones too; it reads nothing.
///
/// @param folder the folder that found the file, or null.
/// @return an object without references, which the caller adds; null for a type that is not sfnt.
FS_BaseFont* makeSfntFont(FS_FontFileType type, const QXUri& uri, FS_FontFolder* folder);

}  // namespace QXFontService_NS
