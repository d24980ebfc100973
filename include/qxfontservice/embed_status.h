#pragma once

namespace QXFontService_NS {

/// What a font's licence bits (OpenType `OS/2`, fsType) say of embedding it in a document.
enum FS_EMBEDSTATUS : int {
  FS_EMBED_ALLOWED = 0,  ///< No restriction is stated.
  FS_EMBED_OTHER = 1,    ///< Some other statement, or a font that states nothing.
  FS_EMBED_RESTRICTED =
      2  ///< Embedding needs the owner's permission; also the empty handle's answer.
};

}  // namespace QXFontService_NS
