#pragma once

#include <map>

#include "qxcommon/uri.h"
#include "qxfontservice/names.h"

#include "font/contract/font_alias.h"
#include "font/contract/font_file_name.h"
#include "font/contract/font_file_options.h"

namespace QXFontService_NS {

/// A folder of fonts, as a URI with a closing separator, and what the configuration says of it.
class FS_FontFolder : public QXUri {
 public:
  FS_FontFolder(const UnicodeString& path, unsigned char reservedValue, bool withSubfolders);

  /// The options of a file by its name in any case; null without.
  const FS_FontFileOptions* findOptions(const UnicodeString& fileName) const;

  unsigned char reserved;
  unsigned char recursive;     ///< 1: subfolders are scanned too.
  unsigned char skipScan = 0;  ///< 1: the folder only holds single files found elsewhere.
  std::map<UnicodeString, FS_FontFileOptions> fileOptions;  ///< By lower-cased file name.
  std::map<FS_FontFileName, FS_FontFileAliases> aliases;
};

}  // namespace QXFontService_NS
