#pragma once

#include "common/bytes/byte_view.h"
#include "layout/table/layout_tables.h"

namespace QXFontService_NS::layout {

/// Which class tables of `GDEF` could be read; an absent one could.
struct GDEFRead {
  bool glyphClasses = true;
  bool markAttachClasses = true;
};

/// Reads the class tables of an OpenType `GDEF` table; attachment points and ligature carets are
/// left. `font.numGlyphs` must be set before.
///
/// Where the glyph classes fail, `gdefLoaded` is false and the mark attachment classes are not
/// read; where these fail, they are dropped and the glyph classes stay.
GDEFRead readGDEF(FS_LayoutTables& font, QXCommonNS::bytes::ByteView table);

}  // namespace QXFontService_NS::layout
