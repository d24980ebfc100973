#include "font/sfnt/hhea.h"

namespace QXFontService_NS::sfnt {

Hhea Hhea::decode(ByteView table) {
  Hhea hhea;
  hhea.ascender = table.i16(4);
  hhea.descender = table.i16(6);
  hhea.lineGap = table.i16(8);
  hhea.numberOfHMetrics = table.u16(34);
  return hhea;
}

}  // namespace QXFontService_NS::sfnt
