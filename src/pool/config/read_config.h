#pragma once

#include "pool/config/config_source.h"
#include "pool/settings/font_folders.h"
#include "pool/settings/service_settings.h"

namespace QXFontService_NS::config {

/// Where the reading of a configuration leaves what it finds.
struct ConfigTarget {
  ServiceSettings& settings;
  FontFolders& folders;
};

/// Walks the file from its root on. Errors are thrown or collected by their level; an element
/// that fails ends the reading with what was read so far in place.
void readConfigFile(ConfigSource& source, const char* homeEnvName, ConfigTarget target);

/// Reads up to the end tag of an element without children. A start tag or a foreign end tag is
/// thrown; false at the end of the file.
[[nodiscard]] bool readToEndOf(ConfigSource& source, Word element);

/// Reads one `font-folder` with all its children. False ends the reading of the file.
[[nodiscard]] bool readFontFolder(ConfigSource& source, const char* homeEnvName,
                                  ConfigTarget target);

/// Reads one `font-alias` with its `alias` children into the folder.
[[nodiscard]] bool readFontAlias(ConfigSource& source, FS_FontFolder& folder);

/// Reads one `eudc-processing` with all its children.
[[nodiscard]] bool readEudcProcessing(ConfigSource& source, ServiceSettings& settings);

}  // namespace QXFontService_NS::config
