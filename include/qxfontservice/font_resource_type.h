#pragma once

namespace QXFontService_NS {

/// Where a font that `FS_EnumFontFamilies` shows came from.
enum FS_FontResourceType : int {
  FS_RESOURCE_MAIN = 0,   ///< The main table.
  FS_RESOURCE_ALIAS = 1,  ///< Reached through an alias of the configuration.
  FS_RESOURCE_EXTRA = 2,  ///< A font of the caller's `FS_ExtraFontManager`.
  FS_RESOURCE_WOFF = 3,   ///< A web font, in a search by family name.
  FS_RESOURCE_EUDC = 4,   ///< An EUDC font, in a search over all fonts.
  FS_RESOURCE_SYSTEM = 5  ///< From the system's font list, in a search over all fonts.
};

}  // namespace QXFontService_NS
