#pragma once

#include "qxcommon/export.h"
#include "qxfontservice/font_info.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS::ext {

/// Opens one face of a font file that no pool knows, of any kind that the service reads.
///
/// `FS_FontInfo::createFont(const QXUri&)` takes every file for a single sfnt; this function goes
/// by the extension first, and where that is unknown by the first four bytes, so collections, web
/// fonts, resource-fork fonts and metric files open too.
///
/// @param file a local file or a `data:` URI.
/// @param face index of the face, from 0.
/// @param out receives the handle, which owns one reference: `deleteFont` releases it.
/// @return whether the face is open. On false `out` is empty and `out.getError()` says why: the
///   file cannot be read, is of no known kind, is damaged, or has no such face.
///
///     FS_FontInfo font;
///     if (ext::openFontFile(QXUri(path, QXCommonNS::URISTR_USER), 0, font)) {
///       ...
///       font.deleteFont();
///     }
QX_EXPORT bool openFontFile(const QXUri& file, int face, FS_FontInfo& out);

/// How many faces the file of a handle has, which is the bound for `face` above: 1 for a single
/// font, 0 for an empty handle. Any thread.
QX_EXPORT int faceCount(const FS_FontInfo& font);

}  // namespace QXFontService_NS::ext
