#include "font/sfnt/vhea.h"

namespace QXFontService_NS::sfnt {

Vhea Vhea::decode(ByteView table) {
  Vhea vhea;
  vhea.vertAscender = table.i16(4);
  vhea.vertDescender = table.i16(6);
  vhea.vertLineGap = table.i16(8);
  return vhea;
}

}  // namespace QXFontService_NS::sfnt
