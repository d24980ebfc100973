#pragma once

#include "qxcommon/uri.h"
#include "qxfontservice/font_file_type.h"
#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// The role that a file name gives a Type 1 file.
enum class Type1Role { none, metrics, program };

/// The role of a file by its extension in any case: AFM and PFM are metrics, PFB and PFA programs.
Type1Role type1RoleOf(const UnicodeString& extension);

/// The font program of a metric file and its kind.
struct Type1Partner {
  QXUri file;
  FS_FontFileType type = FS_FILETYPE_UNKNOWN;  ///< unknown: there is none
};

/// Finds the program that stands beside a metric file under the same name: PFB before PFA, in
/// upper case when the first letter of the metric file's extension is. No file is read for it.
Type1Partner type1PartnerOf(const QXUri& metrics);

}  // namespace QXFontService_NS
