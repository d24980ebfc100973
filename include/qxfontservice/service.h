#pragma once

#include <vector>

#include "qxcommon/export.h"
#include "qxfontservice/error_codes.h"
#include "qxfontservice/font_resource_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

class FS_EnumLogFontEx;
class FS_ExtraFontManager;
class FS_NewTextMetricEx;

/// Opens the service: reads the configuration and scans the fonts it names.
///
/// @param envName name of the environment variable that may hold the configuration's path; null or
///   empty: no configuration file is read, and the system's fonts serve.
/// @param error receives the reason of a failure, an empty record otherwise; null: the reason is
///   thrown as a `QXError`, the only exception of its kind that leaves the service.
/// @return 0, or the code of the failure.
/// A service once opened stays open to the end of the process; a second call changes nothing and
/// gives 0. All functions of this header may be called from any thread, but not beside the end of
/// the process, which destroys the service.
QX_EXPORT FS_ERROR FontServiceOpen(const char* envName, QXError* error);

/// Does nothing and gives 0: hosts rely on closing and opening again keeping all fonts.
QX_EXPORT FS_ERROR FontServiceClose();

/// The local path of the configuration file that `envName` leads to, without opening the service.
/// Empty when the file is missing, unless `evenIfMissing`.
QX_EXPORT UnicodeString FS_GetFontConfigPath(const char* envName, bool evenIfMissing);

/// The font folders of the configuration that `envName` leads to, without opening the service. With
/// no name and without a file it is the system's font folder alone.
/// @param out local paths with closing separators, in order; empty when the configuration is bad.
/// @return whether some folder has `font-alias` records: false is no failure by itself.
QX_EXPORT bool FS_GetFontFoldPathVector(const char* envName, std::vector<UnicodeString>& out);

/// Adds the fonts of one folder, without its subfolders and without aliases. A style that a name
/// finds already is not replaced.
/// @param folder a local path, with or without its closing separator.
/// @return the number of font files loaded, not of faces; 0 for a folder that is known already, for
///   one that cannot be listed, and when the service cannot be opened.
QX_EXPORT int FS_AddFontFolderPath(const QXUri& folder);

/// Receives one face; its records live through the call only. Non-zero ends the walk.
using FS_EnumFontCallback = int (*)(FS_FontResourceType type, const FS_EnumLogFontEx* font,
                                    const FS_NewTextMetricEx* metric, void* user);

/// Walks the faces of a family, or of all fonts.
///
/// @param family a family or file name; empty: all fonts; with a leading "@" only faces that have
///   vertical forms.
/// @param user handed to the callback.
/// @param extra a document's fonts, walked first; may be null.
/// @param flags not used.
/// @return the callback's result that ended the walk; 0 when none did, also for an unknown family;
///   1 when the service cannot be opened or a `QXError` was thrown on the way. Other exceptions of
///   the callback pass to the caller.
/// The callback runs under the service's lock; it may call lookups and add folders, whose faces are
/// walked too where they stand behind the present one. A family that lookups have filled (see
/// `FS_FontInfo::createFont`) shows a face once for each style that it answers.
QX_EXPORT int FS_EnumFontFamilies(const UnicodeString& family, FS_EnumFontCallback callback,
                                  void* user, FS_ExtraFontManager* extra, int flags);

/// Reads the errors that the service collected, in order of occurrence.
/// @param out null: the result is their number.
/// @return `index`, or -1, with `out` untouched, when there is no such error and when the service
///   cannot be opened. Errors are never dropped, so an index stays good.
QX_EXPORT int FS_GetFontError(QXError* out, int index);

/// Packs up to four characters of U+0020 to U+007E, padded with spaces, into an OpenType tag. Does
/// not open the service.
/// @return the tag with the first character highest; 0 for any other text.
QX_EXPORT unsigned int toTAG(const UnicodeString& text);

/// The system's font folder with its closing separator; empty when there is none. Does not open
/// the service.
QX_EXPORT UnicodeString getWinFontsPath();

}  // namespace QXFontService_NS
