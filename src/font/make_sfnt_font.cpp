#include "font/make_sfnt_font.h"

#include "font/dfont.h"
#include "font/open_type.h"
#include "font/true_type.h"
#include "font/true_type_collection.h"
#include "font/woff.h"

namespace QXFontService_NS {

FS_BaseFont* makeSfntFont(FS_FontFileType type, const QXUri& uri, FS_FontFolder* folder) {
  switch (type) {
    case FS_FILETYPE_TRUETYPE:
      return new FS_TrueType(uri, folder);
    case FS_FILETYPE_TTC:
      return new FS_TrueTypeCollection(uri, folder);
    case FS_FILETYPE_OPENTYPE:
    case FS_FILETYPE_OPENTYPE_CID:
      return new FS_OpenType(uri, folder);
    case FS_FILETYPE_DFONT:
      return new FS_DFont(uri, folder);
    case FS_FILETYPE_WOFF:
      return new FS_WOFF(uri, folder);
    default:
      return nullptr;
  }
}

}  // namespace QXFontService_NS
