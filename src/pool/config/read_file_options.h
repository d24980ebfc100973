#pragma once

#include "font/contract/font_folder.h"
#include "pool/config/config_source.h"

namespace QXFontService_NS::config {

// The children of `font-folder` that set options of one file. Each reads the attributes of the
// tag at which the source stands; false ends the reading of the configuration.

[[nodiscard]] bool readFontEntry(ConfigSource& source, FS_FontFolder& folder);
[[nodiscard]] bool readFontExclude(ConfigSource& source, FS_FontFolder& folder);
[[nodiscard]] bool readUseZeroGlyphId(ConfigSource& source, FS_FontFolder& folder);
[[nodiscard]] bool readGlyphList(ConfigSource& source, FS_FontFolder& folder);
[[nodiscard]] bool readSkipGlyphnameMapping(ConfigSource& source, FS_FontFolder& folder);

/// The required bare file name in `attribute`: reports a missing one and one with a folder part.
/// False ends the reading.
[[nodiscard]] bool readFileName(ConfigSource& source, Word element, Word attribute,
                                UnicodeString& out);

/// The key of a file's options: its name without regard to case.
UnicodeString fileKey(UnicodeString name);

}  // namespace QXFontService_NS::config
