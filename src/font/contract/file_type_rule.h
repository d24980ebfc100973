#pragma once

#include <istream>
#include <span>
#include <string_view>

#include "qxfontservice/font_file_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// A file extension, with its point and in lower case, and the kind of file it names.
struct FontFileExtension {
  std::u16string_view extension;
  FS_FontFileType type;
};

/// The seven extensions that the service knows; the registry's table is filled from them.
std::span<const FontFileExtension> fontFileExtensions();

/// The kind an extension names, in any case; unknown for any other text.
FS_FontFileType fontFileTypeOfExtension(const UnicodeString& extension);

/// The kind of a font file, from its extension and its first four bytes.
///
/// @param hint FS_FILETYPE_HINT_BYTES and FS_FILETYPE_HINT_BYTES2 look at the bytes alone; the
///   other hints name the kind of an unknown extension; 0 for none.
/// @param stream may be null; its position is kept and its state cleared.
/// @return FS_FILETYPE_UNKNOWN for an unknown extension without a hint.
FS_FontFileType fontFileTypeOf(const UnicodeString& extension, FS_FontFileType hint,
                               std::istream* stream);

/// The second half of the rule: "OTTO" turns TrueType into OpenType, its lack the other way.
FS_FontFileType refineFontFileType(FS_FontFileType type, std::istream& stream);

}  // namespace QXFontService_NS
