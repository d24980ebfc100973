#include "font/sfnt/head.h"

namespace QXFontService_NS::sfnt {

Head Head::decode(ByteView table) {
  Head head;
  head.unitsPerEm = table.u16(18);
  head.xMin = table.i16(36);
  head.yMin = table.i16(38);
  head.xMax = table.i16(40);
  head.yMax = table.i16(42);
  head.macStyle = table.u16(44);
  head.indexToLocFormat = table.u16(50);
  return head;
}

}  // namespace QXFontService_NS::sfnt
