#pragma once

#include "pool/registry/font_registry.h"

namespace QXFontService_NS {

/// Brings the end-user-defined fonts in: the default pair and those linked to families.
///
/// Such a font stands in the main pool's list under a made-up, unique name and not under its own,
/// so that documents cannot ask for it by accident.
class EudcLoader {
 public:
  explicit EudcLoader(FS_FontRegistry& registry) : registry_(registry) {}

  /// Loads the system's default font twice, for horizontal and for vertical setting. The error
  /// of opening either is collected.
  void loadDefault();

  /// Links the font of each entry of the map, in the order of the families, to the first face of
  /// its family. The font is opened when a handle is made on that face.
  void linkFamilies();

 private:
  void linkFamily(const UnicodeString& family, const QXUri& file);
  FS_BaseFont* loadFile(const QXUri& file);

  FS_FontRegistry& registry_;
};

}  // namespace QXFontService_NS
